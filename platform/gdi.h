#pragma once

#include <memory>
#include <string_view>

#include "platform/types.h"
#include "sequence/api.h"

/// Descriptions of drawing tools and the abstract device context. A description holds no
/// resource of the toolkit, so it can be copied, compared and made at no cost; what is costly to
/// make (a font, a picture) is cached behind the device context.

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DOT = 2;
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD SRCAND = 0x008800C6;
inline constexpr int COLOR_BTNFACE = 15;

struct CPen {
    int style = PS_SOLID;
    int width = 1;
    COLORREF colour = 0;
    bool operator==(const CPen&) const = default;
};

struct CBrush {
    COLORREF colour = 0xFFFFFF;
    bool operator==(const CBrush&) const = default;
};

/// `height` is the character cell's height in pixels. The bitmap faces of old ("MS Sans Serif")
/// have no outline here; the device context maps them to a legible size of the interface font.
struct CFont {
    int height = 0;
    int weight = 400;
    CString face;
    bool operator==(const CFont&) const = default;
};

/// What the toolkit keeps for a picture; made and read only by its device contexts.
struct BitmapStorage {
    virtual ~BitmapStorage() = default;
};

/// A picture, of a resource or of a memory device context. Copies share the pixels.
class ORBIX_API CBitmap {
public:
    /// Binds the picture resource with this number; false, and the bitmap empty, when there is
    /// none. Drawn when it is first used, at the pixel ratio of the context it is used on.
    bool LoadBitmap(UINT id);

    UINT ResourceId() const { return resourceId_; }
    SIZE Size() const { return size_; }
    const std::shared_ptr<BitmapStorage>& Storage() const { return storage_; }

    /// Toolkit side: takes the pixels, `size` in logical pixels.
    void SetStorage(std::shared_ptr<BitmapStorage> storage, SIZE size);

private:
    UINT resourceId_ = 0;
    SIZE size_;
    std::shared_ptr<BitmapStorage> storage_;
};

/// A device context: the state of drawing, and the drawing itself, which the toolkit (or a
/// recorder in a test) supplies. Coordinates are logical pixels, no antialiasing: an ellipse and
/// a filled rectangle cover left..right-1 and top..bottom-1, a line leaves out its last pixel.
/// Main thread only.
class ORBIX_API CDC {
public:
    CDC() = default;
    virtual ~CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    /// A memory context of the same kind; null when it can't be made. It draws nowhere until a
    /// bitmap is selected.
    virtual std::unique_ptr<CDC> CreateCompatibleDC() = 0;
    /// A bitmap of this context's pixel ratio, its content undefined.
    virtual CBitmap CreateCompatibleBitmap(int width, int height) = 0;
    /// Makes `bitmap` what this memory context draws on; null takes it off again.
    virtual void SelectBitmap(CBitmap* bitmap) = 0;

    virtual void FillRect(const RECT& rect, const CBrush& brush) = 0;
    /// Outline with the pen, inside with the brush.
    virtual void Ellipse(int left, int top, int right, int bottom) = 0;
    /// From the current place to (x, y), which becomes the current place.
    virtual void LineTo(int x, int y) = 0;
    virtual void TextOut(int x, int y, std::string_view text) = 0;
    virtual SIZE GetTextExtent(std::string_view text) = 0;
    virtual void BitBlt(int x, int y, int width, int height, CDC& source, int sourceX, int sourceY,
                        DWORD operation) = 0;

    void MoveTo(int x, int y) { place_ = {x, y}; }

    /// Each gives the tool or setting that was in force before.
    CPen SelectObject(const CPen& pen);
    CBrush SelectObject(const CBrush& brush);
    CFont SelectObject(const CFont& font);
    int SetBkMode(int mode);
    COLORREF SetBkColor(COLORREF colour);
    COLORREF SetTextColor(COLORREF colour);

    COLORREF GetTextColor() const { return textColour_; }
    COLORREF GetBkColor() const { return backgroundColour_; }

protected:
    CPen pen_;
    CBrush brush_;
    CFont font_;
    int backgroundMode_ = OPAQUE;
    COLORREF backgroundColour_ = 0xFFFFFF;
    COLORREF textColour_ = 0;
    POINT place_;
};
