#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "platform/data_exchange.h"
#include "res/resources.h"
#include "tests/support/ui_driver.h"
#include "views/page_cartesian.h"
#include "views/page_spherical.h"
#include "views/page_tab_ctrl.h"
#include "views/time_sig_edit.h"

/// A dialog with the input controls and both pages, which takes positions as the editor does.
class HostDialog : public CDialog {
public:
    static constexpr int kMeasure = 4018, kMeasureSpin = 4017, kTab = 4059, kOther = 90;

    HostDialog() : CDialog(100) {}

    const MessageMap* GetMessageMap() const override {
        static constexpr MessageEntry entries[] = {OnMessage<&HostDialog::OnSet3DPos>(WM_SET3DPOS)};
        static const MessageMap map{CDialog::GetMessageMap(), entries};
        return &map;
    }

    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Control(exchange, kMeasure, measure);
        DDX_Control(exchange, kMeasureSpin, measureSpin);
        DDX_Control(exchange, kTab, tab);
        timeSig.BindControls(exchange);
    }

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        measure.SetLimit(5);
        measure.SetRange(1, 99999);
        measure.SetFallback(7);
        measureSpin.SetRange32(1, 99999);
        measureSpin.SetPos(3);
        tab.AddPage(&spherical, CPage3DPosSpherical::kTemplateId, "Spherical");
        tab.AddPage(&cartesian, CPage3DPosCartesianal::kTemplateId, nullptr);
        C3DPosConverter converter;
        converter.SetCartesianRange(-12750.0, 12750.0);
        converter.SetSphericalRange(0.0, 12750.0, -180.0, 177.0, -90.0, 90.0);
        spherical.InitPage(m_hWnd);
        cartesian.InitPage(m_hWnd, converter);
        tab.SelectPage(0);
        return TRUE;
    }

    /// To both pages, as on a new selection.
    void SendPosition(tag3DPosMsg position) {
        spherical.SendMessage(WM_SET3DPOS, reinterpret_cast<WPARAM>(&position));
        cartesian.SendMessage(WM_SET3DPOS, reinterpret_cast<WPARAM>(&position));
    }
    std::vector<tag3DPosMsg> TakeReports() { return std::exchange(reports, {}); }

    CNumericEdit measure;
    CEmptyFillSpin measureSpin;
    CTimeSigEdit timeSig;
    CPageTabCtrl tab;
    CPage3DPosSpherical spherical;
    CPage3DPosCartesianal cartesian;
    std::vector<tag3DPosMsg> reports;  ///< What the pages reported.
    std::function<void()> onReport = [] {};

private:
    LRESULT OnSet3DPos(WPARAM wParam, LPARAM lParam) {
        reports.push_back(*reinterpret_cast<const tag3DPosMsg*>(wParam));
        CWnd* other = lParam == kFromSphericalPage ? static_cast<CWnd*>(&cartesian) : &spherical;
        other->SendMessage(WM_SET3DPOS, wParam);
        onReport();
        return 0;
    }
};

/// Runs a HostDialog with its resources.
inline int RunHost(const std::function<void(HostDialog&, DialogDriver&)>& script) {
    using enum ControlKind;
    static constexpr const char* denominators[] = {"2", "4", "8", "16", "32"};
    static constexpr ControlTemplate controls[] = {
        {edit, HostDialog::kMeasure, "", 5, 5, 30, 12, kTabStop},
        {spin, HostDialog::kMeasureSpin, "", 35, 5, 9, 12},
        {pushButton, HostDialog::kOther, "Other", 60, 5, 40, 14, kTabStop},
        {groupBox, 1036, "TimeSignature Setting", 5, 25, 110, 25},
        {edit, 4025, "", 10, 34, 26, 12, kTabStop},
        {spin, 4026, "", 36, 34, 9, 12},
        {staticText, 1037, " /", 50, 36, 9, 9},
        {comboBox, 4024, "", 62, 34, 34, 12, kTabStop, nullptr, denominators},
        {tab, HostDialog::kTab, "", 6, 60, 206, 106, kTabStop}};
    static const std::array<DialogTemplate, 3> dialogs{
        DialogTemplate{100, "Host", 220, 170, false, false, controls}, kSphericalPageTemplate,
        kCartesianPageTemplate};
    static const ResourceTable table{dialogs, {}, {}, {}};
    AfxInitExtensionModule(table);
    HostDialog dialog;
    const int result = RunDialog(dialog, [&](DialogDriver& user) { script(dialog, user); });
    AfxTermExtensionModule(table);
    return result;
}
