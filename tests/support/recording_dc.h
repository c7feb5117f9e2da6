#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/gdi.h"

/// What was drawn, one line a call, in order, the tools in force written out; colours as RRGGBB.
///
///     dc fill (0,0,10,10) 000000
///     mem1 ellipse (2,2,9,9) pen solid 000000 brush FF7F00
///     mem1 line (0,0,9,0) pen dot FFFFFF on 000000          "on": the gaps of a dotted line
///     mem1 text (4,5) "X" FFFFFF font 8                     opaque text has "on" too
///     mem2 select picture 5004                              or "bitmap (30,20)", or "nothing"
///     dc blt (0,0,30,20) from mem1 (0,0) copy               place and extent
using DrawingLog = std::vector<std::string>;

/// A context that draws nowhere and keeps a log. Memory contexts made from it write to the same
/// log as mem1 and mem2, those made from mem1 as mem1.1 and so on. Every character is 5 pixels
/// wide, every text 9 high.
class RecordingDC : public CDC {
public:
    explicit RecordingDC(DrawingLog& log, std::string name = "dc")
        : log_(log), name_(std::move(name)) {}

    std::unique_ptr<CDC> CreateCompatibleDC() override;
    CBitmap CreateCompatibleBitmap(int width, int height) override;
    void SelectBitmap(CBitmap* bitmap) override;
    void FillRect(const RECT& rect, const CBrush& brush) override;
    void Ellipse(int left, int top, int right, int bottom) override;
    void LineTo(int x, int y) override;
    void TextOut(int x, int y, std::string_view text) override;
    SIZE GetTextExtent(std::string_view text) override;
    void BitBlt(int x, int y, int width, int height, CDC& source, int sourceX, int sourceY,
                DWORD operation) override;

    /// From now on no memory context can be made.
    void RefuseMemory() { refusesMemory_ = true; }

private:
    std::string Pen() const;

    DrawingLog& log_;
    std::string name_;
    int memories_ = 0;
    bool refusesMemory_ = false;
};
