#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/data_exchange.h"
#include "res/resources.h"
#include "tests/support/ui_driver.h"
#include "views/page_cartesian.h"
#include "views/page_spherical.h"
#include "views/page_tab_ctrl.h"
#include "views/time_sig_edit.h"

/// The editor's window with the input controls and both pages alive, which takes positions as the
/// editor does.
class HostDialog : public CDialog {
public:
    static constexpr int kMeasure = 4018, kMeasureSpin = 4017, kTab = 4059;
    static constexpr int kOther = 1033;  ///< Takes the focus away.

    HostDialog() : CDialog(kMainDialogTemplate.id) {}

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
        tab.AddPage(&spherical, CPage3DPosSpherical::kTemplateId, "Spherical");
        tab.AddPage(&cartesian, CPage3DPosCartesianal::kTemplateId, nullptr);
        spherical.InitPage(m_hWnd);
        cartesian.InitPage(m_hWnd, EditorLimits());
        tab.SelectPage(0);
        return TRUE;
    }

    /// To both pages, as on a new selection.
    void SendPosition(tag3DPosMsg position) {
        spherical.SendMessage(WM_SET3DPOS, reinterpret_cast<WPARAM>(&position));
        cartesian.SendMessage(WM_SET3DPOS, reinterpret_cast<WPARAM>(&position));
    }
    std::string TakeReports() { return std::exchange(reports, {}); }

    CNumericEdit measure;
    CEmptyFillSpin measureSpin;
    CTimeSigEdit timeSig;
    CPageTabCtrl tab;
    CPage3DPosSpherical spherical;
    CPage3DPosCartesianal cartesian;
    std::string reports;  ///< What the pages reported: "1050 0 0; ", distance and angles.
    std::function<void()> onReport = [] {};

private:
    LRESULT OnSet3DPos(WPARAM wParam, LPARAM lParam) {
        const auto& [distance, azimuth, elevation] = *reinterpret_cast<const tag3DPosMsg*>(wParam);
        reports += std::to_string(distance) + " " + std::to_string(azimuth) + " " +
                   std::to_string(elevation) + "; ";
        CWnd* other = lParam == kFromSphericalPage ? static_cast<CWnd*>(&cartesian) : &spherical;
        other->SendMessage(WM_SET3DPOS, wParam);
        onReport();
        return 0;
    }
};

/// Runs a HostDialog with its resources.
inline void RunHost(const std::function<void(HostDialog&, DialogDriver&)>& script) {
    AfxInitExtensionModule(OrbixResources());
    HostDialog dialog;
    RunDialog(dialog, [&](DialogDriver& user) { script(dialog, user); });
    AfxTermExtensionModule(OrbixResources());
}
