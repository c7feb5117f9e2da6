#pragma once

#include <array>

#include "platform/dialog.h"
#include "views/position_messages.h"
#include "views/position_row.h"

/// The page with distance, azimuth and elevation. It reports every movement of a slider to the
/// editor at once, with WM_SET3DPOS. Main thread only.
class ORBIX_API CPage3DPosSpherical : public CPropertyPage {
public:
    static constexpr UINT kTemplateId = 4007;
    static const CRuntimeClass classCPage3DPosSpherical;

    CPage3DPosSpherical();
    const CRuntimeClass* GetRuntimeClass() const override;
    ~CPage3DPosSpherical() override;
    const MessageMap* GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;

    /// Sets up the controls; `owner` is the editor's window. The page's window must exist.
    void InitPage(HWND owner);

private:
    enum Row { kDistance, kAzimuth, kElevation, kRowCount };

    LRESULT OnHScroll(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetPos(WPARAM wParam, LPARAM lParam);
    LRESULT OnEnablePage(WPARAM wParam, LPARAM lParam);
    LRESULT OnRepeatClick(WPARAM wParam, LPARAM lParam);
    tag3DPosMsg Position() const;
    static CString TextOf(std::size_t row, int position);

    HWND m_hWndOwner = nullptr;
    std::array<PositionRow, kRowCount> m_Rows;
};
