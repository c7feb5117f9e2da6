#include "views/position_row.h"

#include "platform/data_exchange.h"

namespace {

constexpr int kTickPercent[] = {0, 50, 100};
/// The buttons do not accelerate; milliseconds a step.
constexpr int kStepDelay = 350;

}  // namespace

void PositionRow::Exchange(CDataExchange* exchange) {
    DDX_Control(exchange, layout_.editId, edit_);
    DDX_Control(exchange, layout_.downId, down_);
    DDX_Control(exchange, layout_.upId, up_);
    DDX_Control(exchange, layout_.tickId, ticks_);
    DDX_Text(exchange, layout_.editId, text_);
    DDX_Slider(exchange, layout_.sliderId, position_);
}

void PositionRow::Init(CWnd& page, int position, const CString& text) {
    ticks_.SetTicks(3, kTickPercent, layout_.labels);
    down_.SetRepeat(0, kStepDelay);
    up_.SetRepeat(0, kStepDelay);
    SetPosition(position, text);
    if (CSliderCtrl* slider = Slider(page)) {
        slider->SetRange(0, layout_.highest);
        slider->SetPos(position);
    }
    edit_.SetWindowText(text);
}

void PositionRow::Enable(CWnd& page, bool enable) {
    for (const int id :
         {layout_.editId, layout_.sliderId, layout_.downId, layout_.upId, layout_.captionId}) {
        if (CWnd* control = page.GetDlgItem(id)) {
            control->EnableWindow(enable);
        }
    }
}

void PositionRow::ReadSlider(CWnd& page) {
    if (const CSliderCtrl* slider = Slider(page)) {
        position_ = slider->GetPos();
    }
}

void PositionRow::ShowText(const CString& text) {
    text_ = text;
    edit_.SetWindowText(text);
}

bool PositionRow::HasSlider(CWnd& page, HWND window) const {
    const CSliderCtrl* slider = Slider(page);
    return window != nullptr && slider != nullptr && slider->m_hWnd == window;
}

int PositionRow::StepOfButton(int controlId) const {
    if (controlId == layout_.downId) {
        return -1;
    }
    return controlId == layout_.upId ? 1 : 0;
}

// The notice carries the old position; who hears it asks the slider, which holds itself in range.
void PositionRow::StepSlider(CWnd& page, int step) const {
    if (CSliderCtrl* slider = Slider(page)) {
        const int position = slider->GetPos();
        slider->SetPos(position + step);
        page.SendMessage(WM_HSCROLL, static_cast<WPARAM>(position),
                         reinterpret_cast<LPARAM>(slider->m_hWnd));
    }
}

void PositionRow::SetPosition(int position, const CString& text) {
    position_ = position;
    text_ = text;
}

CSliderCtrl* PositionRow::Slider(CWnd& page) const {
    return page.GetDlgItemAs<CSliderCtrl>(layout_.sliderId);
}

void StepRows(CWnd& page, std::span<const PositionRow> rows, int controlId) {
    for (const PositionRow& row : rows) {
        if (const int step = row.StepOfButton(controlId); step != 0) {
            row.StepSlider(page, step);
        }
    }
}
