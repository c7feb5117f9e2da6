#include "views/page_tab_ctrl.h"

#include <algorithm>

namespace {

/// What the tab control keeps for its frame and its row of tabs, in pixels.
constexpr int kFrameWidth = 6;
constexpr int kFrameHeight = 29;
/// Where a page begins: past the frame (two borders of 1 and 3 more) and the row of tabs, which
/// is as high as a window's title of 22 and 3 more.
constexpr int kPageLeft = 1 * 2 + 3;
constexpr int kPageTop = 22 + 3;

}  // namespace

CPageTabCtrl::~CPageTabCtrl() = default;

const MessageMap* CPageTabCtrl::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnReflectedNotify<&CPageTabCtrl::OnSelChange>(TCN_SELCHANGE),
    };
    static const MessageMap map{CTabCtrl::GetMessageMap(), entries};
    return &map;
}

void CPageTabCtrl::AddPage(CDialog* page, UINT templateId, const char* title) {
    if (page == nullptr || templateId == 0) {
        return;
    }
    if (page->m_hWnd == nullptr && !page->Create(templateId, this)) {
        return;
    }
    if (GetItemCount() == 0) {  // Pages of a window that was closed before this one.
        m_Pages.clear();
        m_nCurrentPage = -1;
    }
    PlacePage(*page);
    m_Pages.push_back(page);
    InsertItem(static_cast<int>(m_Pages.size()),
               title == nullptr ? page->GetWindowText() : CString(title));
}

void CPageTabCtrl::PlacePage(CDialog& page) {
    const RECT tab = GetClientRect();
    const RECT size = page.GetClientRect();
    page.MoveWindow({kPageLeft, kPageTop,
                     kPageLeft + std::min(Width(tab) - kFrameWidth, Width(size)),
                     kPageTop + std::min(Height(tab) - kFrameHeight, Height(size))});
}

int CPageTabCtrl::SelectPage(int index) {
    const int count = static_cast<int>(m_Pages.size());
    if (index >= count) {
        return 0;
    }
    if (m_nCurrentPage >= 0 && m_nCurrentPage < count) {
        m_Pages[static_cast<std::size_t>(m_nCurrentPage)]->ShowWindow(SW_HIDE);
    }
    if (index >= 0) {
        m_Pages[static_cast<std::size_t>(index)]->ShowWindow(SW_SHOW);
    }
    SetCurSel(index);
    m_nCurrentPage = index;
    return 1;
}

void CPageTabCtrl::OnSelChange(NMHDR* /*header*/, LRESULT* result) {
    SelectPage(GetCurSel());
    *result = 0;
}
