#pragma once

#include <array>

#include "platform/dialog.h"
#include "views/position_arithmetic.h"
#include "views/position_messages.h"
#include "views/position_row.h"

/// The page with X, Y and Z. It collects the movements of its sliders and reports them to the
/// editor with "Set" only, since one coordinate alone changes all of distance, azimuth and
/// elevation. Main thread only.
class ORBIX_API CPage3DPosCartesianal : public CPropertyPage {
public:
    static constexpr UINT kTemplateId = 4008;
    static const CRuntimeClass classCPage3DPosCartesianal;

    CPage3DPosCartesianal();
    const CRuntimeClass* GetRuntimeClass() const override;
    ~CPage3DPosCartesianal() override;
    const MessageMap* GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;

    /// Sets up the controls; `owner` is the editor's window, the converter's limits are copied.
    /// The page's window must exist.
    void InitPage(HWND owner, const C3DPosConverter& converter);

private:
    LRESULT OnHScroll(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetPos(WPARAM wParam, LPARAM lParam);
    LRESULT OnEnablePage(WPARAM wParam, LPARAM lParam);
    LRESULT OnRepeatClick(WPARAM wParam, LPARAM lParam);
    void OnBnClickedSet();
    void SetDirty(bool dirty);
    void ShowPoint(double x, double y, double z);

    HWND m_hWndOwner = nullptr;
    C3DPosConverter m_Converter;
    std::array<PositionRow, 3> m_Rows;
    int m_bDirty = 0;
};
