#pragma once

#include <span>

#include "platform/controls.h"
#include "platform/dialog.h"
#include "views/repeat_button.h"
#include "views/tick_label.h"

/// Control numbers of a row and what its slider reaches.
struct PositionRowLayout {
    int captionId;
    int editId;
    int downId;  ///< The "<" button.
    int sliderId;
    int upId;  ///< The ">" button.
    int tickId;
    int highest;  ///< Slider positions go from 0 to this.
    /// Labels of the ruler at 0, 50 and 100 percent.
    const char* labels[3];
};

/// One coordinate of a position page: a slider with a read-only text, a button at each end and a
/// ruler above. The page decides what a slider position means. Main thread only.
class PositionRow {
public:
    explicit PositionRow(const PositionRowLayout& layout) : layout_(layout) {}

    /// Binds the controls and moves text and position between them and the members.
    void Exchange(CDataExchange* exchange);
    /// Sets up ruler, slider and buttons and shows `position` with `text`.
    void Init(CWnd& page, int position, const CString& text);
    void Enable(CWnd& page, bool enable);

    /// Takes the position that the slider shows.
    void ReadSlider(CWnd& page);
    /// Puts the text into its box at once.
    void ShowText(const CString& text);

    bool HasSlider(CWnd& page, HWND window) const;
    /// -1 or 1 for a button of this row, 0 for any other control.
    int StepOfButton(int controlId) const;
    /// Moves the slider and sends the page the scroll notice of it.
    void StepSlider(CWnd& page, int step) const;

    int Position() const { return position_; }
    void SetPosition(int position, const CString& text);

private:
    CSliderCtrl* Slider(CWnd& page) const;

    const PositionRowLayout& layout_;
    CString text_;
    int position_ = 0;
    CTickLabel ticks_;
    CRepeatButton down_;
    CRepeatButton up_;
    CEdit edit_;
};

/// A click of a row's button moves that row's slider; a control that is no button does nothing.
void StepRows(CWnd& page, std::span<const PositionRow> rows, int controlId);
