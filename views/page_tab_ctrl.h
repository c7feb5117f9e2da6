#pragma once

#include <vector>

#include "platform/controls.h"
#include "platform/dialog.h"

/// A tab control that shows one of several child dialogs. Main thread only.
class ORBIX_API CPageTabCtrl : public CTabCtrl {
public:
    ~CPageTabCtrl() override;
    const MessageMap* GetMessageMap() const override;

    /// Appends a page, borrowed, and makes its window when it has none. Without a title the tab
    /// shows the page's window text. Does nothing for a null page, template 0 or a page whose
    /// window can't be made.
    void AddPage(CDialog* page, UINT templateId, const char* title);

    /// Shows the page with this index and hides the one shown before; -1 shows none. 1 on success,
    /// 0 when there is no such page.
    int SelectPage(int index);

private:
    void OnSelChange(NMHDR* header, LRESULT* result);
    void PlacePage(CDialog& page);

    std::vector<CDialog*> m_Pages;
    int m_nCurrentPage = -1;
};
