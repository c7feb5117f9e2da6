#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "dialog/control_ids.h"
#include "dialog/manager.h"
#include "event/report.h"
#include "params/value_forms.h"
#include "platform/controls.h"
#include "platform/dialog.h"
#include "platform/dialog_template.h"
#include "sequence/api.h"
#include "views/empty_fill_spin.h"
#include "views/numeric_edit.h"
#include "views/page_cartesian.h"
#include "views/page_spherical.h"
#include "views/page_tab_ctrl.h"
#include "views/position_messages.h"
#include "views/time_sig_edit.h"

class CQelCPB_3DPattern;
class CZurParamBlock;
class CZurSMWMan;
struct st_cmd3DInitialPosition;

/// The editor: one modal dialog on a copy of the host's pattern. A host constructs it, calls
/// DoModal and reads the result through the getters; the pattern that it passed in is never
/// changed. Everything runs on the host's user-interface thread. Only one editor can be open at a
/// time, over all processes of the user.
///
/// The rules of the event table are the store's, those of the commands C3DManager's; the dialog
/// reads its fields, hands on and reports. Nearly all commands stand still while a dot of the
/// graph is being dragged.
class ORBIX_API COrbixMainDlg : public CDialog {
public:
    static const CRuntimeClass classCOrbixMainDlg;

    /// `parent` may be null. `pattern` is copied; null makes a default pattern. `outParameters`,
    /// `initialPositions` and `link` are borrowed for the dialog's life. `unusedTimeSigs` and
    /// `unusedNumber` are not looked at. `freeMode` true lets everything be edited; false binds
    /// ticks to rangeStart..rangeEnd (total ticks, inclusive) and locks name, division and time
    /// signatures. The two folders are where the file dialogs start; null counts as "".
    COrbixMainDlg(CWnd* parent, CQelCPB_3DPattern* pattern, CZurParamBlock* outParameters,
                  std::vector<st_cmd3DInitialPosition>* initialPositions, CZurSMWMan& link,
                  std::vector<t_tSigRec>* unusedTimeSigs, unsigned short unusedNumber,
                  unsigned long rangeStart, unsigned long rangeEnd, bool freeMode,
                  const char* csvLoadFolder, const char* csvSaveFolder);

    const CRuntimeClass* GetRuntimeClass() const override;
    ~COrbixMainDlg() override;
    const MessageMap* GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL PreTranslateMessage(MSG* message) override;
    /// IDOK or IDCANCEL; -1 when it can't be shown, or, after a message, when an editor is open
    /// already.
    int DoModal() override;
    BOOL OnInitDialog() override;

    // --- for the host ---

    /// The edited copy: null when copying failed, else alive as long as the dialog. It takes the
    /// changes when the dialog ends with OK.
    CQelCPB_3DPattern* Get3DPatternForTool() const { return pattern_.get(); }
    CZurParamBlock* GetOutSelParam() const { return outParameters_; }
    std::vector<st_cmd3DInitialPosition>* Get3DIniPosVect() const { return initialPositions_; }
    CZurSMWMan& GetSMWManRef() const { return link_; }
    bool GetModified() const { return modified_; }
    CString GetInitialDirCsvLoad() const { return csvLoadFolder_; }
    CString GetInitialDirCsvSave() const { return csvSaveFolder_; }

    /// Whether the name differs from the pattern's; false without a pattern.
    bool IsNameModified() const;
    /// Sets the modified mark; OK is enabled by it.
    void SetModified(bool modified);
    /// Loads another pattern into the editor: modified when it had to be corrected.
    void Reset3DManagerByTool3DPattern(CQelCPB_3DPattern* pattern);
    /// Writes the editor's state into a pattern of the caller's.
    void Update3DPatternForTool(CQelCPB_3DPattern* pattern);
    /// Replaces the table by that of a CSV file, after a question when there is something to
    /// lose; the list and the fields follow, the history is empty, modified is set. Gives 1 when
    /// the file was taken in, else 0 with everything as it was and the user told why. Null or an
    /// empty path gives 0 and says nothing.
    int Load3DFile(const char* path);

    // --- for the graph and the manager ---

    /// Selects event number `index`, from 0, among those in view with this 3D ID.
    void SetCurrentPointFromCallback(int id, int index);
    /// Gives that event the distance, azimuth and elevation of `event`, as one undoable change.
    void SetCurrentMoveFromCallback(int id, int index, const _tagEvent3D& event);
    /// Fills a blank event from the fields.
    void CopyEvent3DFromDialog(_tagEvent3D& event) const;
    /// Fills the fields from an event; null only brings the controls' states in line.
    void CopyDialogValueFromCallback(const _tagEvent3D* event);
    /// Enables the command buttons by table, selection and history; the event is not looked at.
    void SetEnableButtonFrom3DEventList(const _tagEvent3D* event) const;
    /// Brings the controls in line with the setting type that the radio buttons show.
    void SetEnableSettingType();
    /// The same with a setting type to choose first: kSettingPosition or kSettingTimeSig.
    void SetEnableSettingType(int settingType);
    /// The four boxes of single IDs are of no use while "ID ALL" is set.
    void SetEnableCheckFilter() const;
    /// View, list and selection anew by the filter's boxes.
    void MakeList();

    static constexpr int kSettingPosition = 0;
    static constexpr int kSettingTimeSig = 1;

    // --- controls; null while the dialog is not open ---

    CButton* GetBtnOK() const { return Button(kBtnOk); }
    CButton* GetBtnCsvLoad() const { return Button(kBtnCsvLoad); }
    CButton* GetBtnCsvSave() const { return Button(kBtnCsvSave); }
    CButton* GetBtnChkID(int control) const { return Button(control); }
    CButton* GetBtnChkXReverse() const { return Button(kChkXReverse); }
    CButton* GetBtnChkYReverse() const { return Button(kChkYReverse); }
    CButton* GetBtnChkZReverse() const { return Button(kChkZReverse); }
    CButton* GetBtnChkIndexView() const { return Button(kChkIndexView); }
    CButton* GetBtnChkIndexLine() const { return Button(kChkIndexLine); }
    CComboBox* GetCmbBoxZoom() const { return GetDlgItemAs<CComboBox>(kComboZoom); }
    CComboBox* GetCmbBoxID() const { return GetDlgItemAs<CComboBox>(kComboId); }
    CWnd* GetStc3DPos() const { return GetDlgItem(kFramePosition); }
    CWnd* GetStc3DPosID() const { return GetDlgItem(kLabelId); }
    CButton* GetRBtnTimeSig() const { return Button(kRadioTimeSig); }
    CButton* GetBtnUndo() const { return Button(kBtnUndo); }
    CButton* GetBtnRedo() const { return Button(kBtnRedo); }

private:
    /// A number of the time group: its value, its box and its spin.
    struct TimeField {
        int value;
        CNumericEdit edit;
        CEmptyFillSpin spin;

        /// Sets up bounds, fallback (the lower bound) and the spin's position.
        void Start(int lower, int upper);
        void Enable(bool enable);
    };

    CButton* Button(int id) const { return GetDlgItemAs<CButton>(id); }
    bool IsDragging() const { return manager_.Graph().IsDragging(); }
    void EnableControl(int id, bool enable) const;
    bool IsChecked(int id) const;

    // Frame (orbix_main_dlg.cpp).
    bool IsTextFieldFocused() const;
    void LoadPattern(CQelCPB_3DPattern* pattern);
    std::optional<CString> NameInPattern() const;
    void OnBnClickedButtonOk();
    void OnBnClickedCancel();
    void OnClose();
    void OnEnChangeEditName();

    // Start (orbix_main_dlg_start.cpp).
    void StartTimeFields();
    void StartFilterAndId();
    void StartPages();
    void StartListAndGraph();
    void DescribePlane(int control, int plane);
    void StartZoom();
    void StartPosition();
    void StartViewSettings();
    void StartTimeSig();
    void StartToolTips();

    // Editing (orbix_main_dlg_editing.cpp).
    void OnBnClickedBtnAdd();
    void OnBnClickedBtnUpdate();
    void OnBnClickedBtnDelete();
    void OnBnClickedBtnUndo();
    void OnBnClickedBtnRedo();
    void RunFieldCommand(int (C3DManager::*command)(_tagEvent3D));
    LRESULT OnSet3DPos(WPARAM wParam, LPARAM lParam);
    void SendPosition(CWnd& page);
    void EnablePositionFields(bool enable);

    // List (orbix_main_dlg_list.cpp).
    void ChangeViewFilter(int control);
    void OnBnClickedChkIdall() { ChangeViewFilter(kChkIdAll); }
    void OnBnClickedChkId0() { ChangeViewFilter(kChkId0); }
    void OnBnClickedChkId1() { ChangeViewFilter(kChkId1); }
    void OnBnClickedChkId2() { ChangeViewFilter(kChkId2); }
    void OnBnClickedChkId3() { ChangeViewFilter(kChkId3); }
    void OnLvnItemChangedList3DEvent(NMHDR* header, LRESULT* result);
    void OnNMCustomDrawListCtrl(NMHDR* header, LRESULT* result);
    void OnNMRclickList3DEvent(NMHDR* header, LRESULT* result);
    void OnNMDblclkList3DEvent(NMHDR* header, LRESULT* result);
    void ShowChangedVisibility();

    // Files (orbix_main_dlg_files.cpp).
    void OnBnClickedBtnCsvLoad();
    void OnBnClickedBtnCsvSave();
    void OnDropFiles(HDROP drop);
    void TakeDroppedFile(const CString& path);

    // Device (orbix_main_dlg_device.cpp).
    void OnBnClickedButtonSend();
    void OnBnClickedButtonPatch();

    // Graph (orbix_main_dlg_graph.cpp).
    void OnPaint();
    void OnCtlColor(CDC* dc, CWnd* control);
    void OnLButtonDown(POINT point);
    void OnMouseMove(POINT point);
    void OnLButtonUp(POINT point);
    void OnCaptureChanged();
    void OnCbnSelchangeCmbZoom();
    void OnBnClickedChkXaxisreverse();
    void OnBnClickedChkYaxisreverse();
    void OnBnClickedChkZaxisreverse();
    void OnBnClickedChkIndexview();
    void OnBnClickedChkIndexLine();
    void ApplyViewSetting(int control, void (C3DGraph::*set)(CWnd*, CDC*, int));

    C3DManager manager_;
    CComboBox idBox_;
    TimeField measure_{1, {}, {}};
    TimeField beat_{1, {}, {}};
    TimeField tick_{0, {}, {}};
    tag3DPosMsg position_{1000, 0, 0};
    bool nameEditable_;
    CPage3DPosSpherical sphericalPage_;
    CPage3DPosCartesianal cartesianPage_;
    CPageTabCtrl tab_;
    C3DReport report_;
    std::unique_ptr<CQelCPB_3DPattern> pattern_;
    bool modified_ = false;
    CString name_;
    CZurParamBlock* outParameters_;
    std::vector<st_cmd3DInitialPosition>* initialPositions_;
    CZurSMWMan& link_;
    CString csvLoadFolder_;
    CString csvSaveFolder_;
    int settingType_ = kSettingPosition;
    CTimeSigEdit timeSig_;
    HACCEL accelerators_;
    CToolTipCtrl toolTip_;
};
