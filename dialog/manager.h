#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "dialog/event_list_ctrl.h"
#include "event/event_store.h"
#include "sequence/api.h"
#include "views/graph.h"

class COrbixMainDlg;

/// Keeps store, list and graph of the editor in step: which events are in view, which one is
/// current, and what each command does to all three. A view row is an index into the view, the
/// events that the filter lets through in table order. The current event is the one whose uid the
/// store holds as its current uid; kNoUid means none. Lives inside the dialog, on its thread.
class ORBIX_API C3DManager {
public:
    /// One flag for each 3D ID: 1 in view, 0 not.
    using ViewFilter = std::array<int, kSourceCount>;

    /// `dialog` is borrowed. Mode is kFreeMode or kRangeMode; the range, total ticks with both
    /// ends inclusive, counts in range mode only.
    C3DManager(COrbixMainDlg* dialog, int mode, std::uint32_t rangeStart, std::uint32_t rangeEnd);
    virtual ~C3DManager();
    C3DManager(const C3DManager&) = delete;
    C3DManager& operator=(const C3DManager&) = delete;

    C3DEventData& Store() { return store_; }
    const C3DEventData& Store() const { return store_; }
    C3DEventListCtrl& List() { return list_; }
    C3DGraph& Graph() { return graph_; }
    const C3DGraph& Graph() const { return graph_; }
    bool IsRangeMode() const { return store_.Mode() == kRangeMode; }

    // --- another table ---

    /// The store's operations of these names. They leave no event in view when they take a table,
    /// since the view holds indices into the one that went; the caller runs RebuildView, once the
    /// report has been shown.
    int LoadFromPattern(CQelCPB_3DPattern* pattern, C3DReport& report);
    int LoadCsv(const CString& path, C3DReport& report);

    // --- commands (manager_commands.cpp) ---

    /// Takes the event into the table and makes it current. 0 or an error code, nothing changed.
    int Add(_tagEvent3D event);
    /// Puts the event in the place of the current one. 0, also without a current row, or an error
    /// code and nothing changed.
    int Update(_tagEvent3D event);
    /// Takes the current event out; the row behind it becomes current, or the one before it. 0,
    /// also without a current row, or an error code and nothing changed.
    int Delete();
    /// 1 when a step was there to undo (redo); the selection of that moment comes back with it.
    int Undo();
    int Redo();

    // --- view and selection ---

    /// The picture of an event's row when the event with `currentUid` is the current one.
    int RowState(std::int32_t currentUid, const _tagEvent3D& event) const;
    /// List, view and graph anew from the store. Without its event in view the current uid goes
    /// to the first event in view, or to none. Neither the list's selection nor the dialog's
    /// fields follow: SelectCurrent does that.
    void RebuildView();
    void SetViewFilter(const ViewFilter& filter);
    void RefreshRowImages();
    /// The graph's points anew from the view, and the planes painted.
    void RefreshGraph();
    /// The view row of the current event, -1 when there is none or it is not in view.
    int CurrentRow() const;
    /// Makes a view row current in list, graph and fields; 1 when it became so. 0 for the row
    /// that is current already, and for a row outside the view, which clears the graph's mark and
    /// leaves the current event.
    int SelectRow(int viewRow);
    /// Shows the current event once more in list, graph and fields.
    void SelectCurrent();
    /// The view row of event number `n`, from 0, among those in view with this id, or -1.
    int RowOfIdIndex(int id, int n) const;
    /// The selected view rows that hold position events; gives their number.
    int SelectedEvents(std::vector<int>& viewRows) const;
    /// True while the list's own marks are being set, so that its notices are no user's choice.
    bool IsSettingMarks() const { return settingMarks_; }

    /// The event at a view row, which must be in view.
    _tagEvent3D& EventInRow(int viewRow) { return store_.EventAt(EventIndex(viewRow)); }
    const _tagEvent3D& EventInRow(int viewRow) const { return store_.EventAt(EventIndex(viewRow)); }
    int ViewSize() const { return static_cast<int>(view_.size()); }

private:
    int EventIndex(int viewRow) const { return view_[static_cast<std::size_t>(viewRow)]; }
    void InsertEventRow(const _tagEvent3D& event);
    void InsertMarkerRow(std::uint32_t type, std::uint32_t tick);
    void KeepCurrentInView();
    void MoveMarks(int fromRow, int toRow);
    void MarkDot(int id, int index);
    int PlaceAmongId(int viewRow) const;
    std::int32_t UidAfterDelete(int viewRow) const;
    static bool IsFirstTimeSig(const _tagEvent3D& event);
    void DeleteViewRow(int viewRow);
    void ShowAfterHistory(std::int32_t uid);

    COrbixMainDlg* dialog_;
    ViewFilter filter_{1, 1, 1, 1};
    std::vector<int> view_;
    C3DEventListCtrl list_;
    C3DEventData store_;
    C3DGraph graph_;
    bool settingMarks_ = false;
};
