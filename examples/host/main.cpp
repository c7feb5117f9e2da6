// A minimal host: makes a pattern, lets the user edit it, reads the result.
//
//     host            opens the editor
//     host --accept   presses OK by itself as soon as the editor is up (for a trial run)

#include <cstdio>
#include <cstring>
#include <string_view>

#include "dialog/orbix_main_dlg.h"
#include "link/smw_manager.h"
#include "params/param_block.h"
#include "params/pattern_block.h"
#include "params/position_block.h"
#include "platform/hooks.h"

namespace {

// One source, two metres away, a quarter to the left: one position event at measure 1.
void AddPosition(CQelCPB_3DPattern& pattern) {
    auto* position = new CQelCPB_3DPosition;
    const struct {
        std::uint32_t parameter;
        std::uint32_t value;
    } settings[] = {
        {2800, 0},              // tick
        {2801, 1},              // 3D ID
        {2804, -90 / 3 + 64U},  // azimuth in wire form
        {2805, 64},             // elevation in wire form: 0 degrees
        {2806, 2000},           // millimetres
    };
    for (const auto& setting : settings) {
        st_paramValue value{-1, setting.value, nullptr};
        position->SetParam(setting.parameter, &value, kSizeParamValue);
    }
    st_paramChild child{0, -1, position};
    pattern.SetParam(2900, &child, kSizeParamChild);  // The pattern owns it from here on.
}

void PrintResult(const COrbixMainDlg& dialog) {
    CQelCPB_3DPattern* pattern = dialog.Get3DPatternForTool();
    st_paramName name;
    st_paramValue count{-1, 0, nullptr};
    pattern->GetParam(2902, &name, kSizeParamName);
    pattern->GetParam(2901, &count, kSizeParamValue);
    std::printf("\"%s\": %u position events, %s\n", name.name, count.value,
                dialog.GetModified() ? "modified" : "unchanged");
}

class CHostDlg : public COrbixMainDlg {
public:
    CHostDlg(CQelCPB_3DPattern& pattern, CZurParamBlock& patch, CZurSMWMan& link, bool accept)
        : COrbixMainDlg(nullptr, &pattern, &patch, nullptr, link, nullptr, 0, 0, 0, true, "", ""),
          accept_(accept) {}

    BOOL OnInitDialog() override {
        const BOOL focus = COrbixMainDlg::OnInitDialog();
        if (accept_) {
            SendMessage(WM_COMMAND, IDOK);
        }
        return focus;
    }

private:
    bool accept_;
};

}  // namespace

int main(int argc, char** argv) {
    CQelCPB_3DPattern pattern;
    AddPosition(pattern);
    CZurParamBlock patch(0, 0U);
    CZurSMWMan link;

    CHostDlg dialog(pattern, patch, link, argc > 1 && std::string_view(argv[1]) == "--accept");
    switch (dialog.DoModal()) {
        case IDOK:
            PrintResult(dialog);
            return 0;
        case IDCANCEL:
            std::puts("cancelled");
            return 0;
        default:
            std::puts("the editor could not be opened");
            return 1;
    }
}
