#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "event/event_record.h"
#include "event/report.h"
#include "event/time_sig_map.h"
#include "params/value_forms.h"
#include "platform/types.h"
#include "sequence/api.h"
#include "sequence/musical_types.h"

class CQelCPB_3DPattern;

/// Most events of one id that a store takes; time signatures count under their own id.
inline constexpr int kMaxEventsPerId = 256;

/// The model of the editor: one ordered table of events, the time-signature map that gives their
/// ticks a measure, beat and tick, and the history. Every change of the table goes through here.
///
/// The table is ordered after every public change: by tick, at one tick time signatures first,
/// then positions by id. In free mode time-signature events and map records correspond one to one.
/// In range mode the map may hold records that have no event, those outside the range.
/// Event indices count from 0, are the caller's to keep valid, and hold until the next change.
/// Operations give 0 or a code of event/report.h; a refused one changes nothing, but for a
/// time signature in range mode, whose record stays in the map.
/// A plain value, copied whole. One thread at a time, no locks.
class ORBIX_API C3DEventData {
public:
    /// An empty store of division 480. The range, in total ticks and inclusive at both ends,
    /// counts in range mode only; mode and range hold for the store's life.
    explicit C3DEventData(int mode = kFreeMode, std::uint32_t rangeStart = 0,
                          std::uint32_t rangeEnd = 0)
        : range_{mode, rangeStart, rangeEnd} {}

    // The table (event_store.cpp).

    /// Number of all events for -1, else of those whose id equals the low byte of `id`.
    int CountEvents(int id) const;
    _tagEvent3D& EventAt(int index) { return events_[static_cast<std::size_t>(index)]; }
    const _tagEvent3D& EventAt(int index) const { return events_[static_cast<std::size_t>(index)]; }
    /// Index of the event with the given event's uid, or -1.
    int FindEventByUid(const _tagEvent3D& event) const;
    /// Index of a time-signature event at the given time-signature event's tick, or -1; always -1
    /// for an event of another type.
    int FindTimeSigEvent(const _tagEvent3D& event) const;
    /// Takes a new event and, when `sortFlag` is 1, orders the table; a null event only sorts.
    /// Writes id and uid into the caller's event. kErrorCountLimit, kErrorTimeSigExists,
    /// kErrorTimeRange.
    int AddEvent(_tagEvent3D* event, int sortFlag);
    /// Overwrites an event, keeps its uid and writes that into the caller's event.
    /// kErrorCountLimit (not for an event that carries the uid already), kErrorTimeRange,
    /// kErrorTimeSigExists, kErrorEventType, tested in this order.
    int ReplaceEvent(int index, _tagEvent3D& event);
    void RemoveEvent(int index);
    /// Orders the table. In free mode it then moves each time-signature event to the tick of its
    /// record, in front of what stands there.
    void SortEvents();
    /// Indices of the events in view, in table order: of position events those whose source has a
    /// flag other than 0, of others all.
    void BuildViewList(const std::array<int, kSourceCount>& flags, std::vector<int>& view) const;
    void CopyTimeSigMap(std::vector<t_tSigMapRec>& records) const { records = map_.Records(); }
    /// Empties table, map records and history. Division, current uid, the next uid and the tool
    /// time signatures stay.
    void ClearEvents();

    // Mode, musical time and the current event.

    int Mode() const { return range_.mode; }
    std::uint32_t RangeStart() const { return range_.start; }
    std::uint32_t RangeEnd() const { return range_.end; }
    std::uint32_t Division() const { return map_.Division(); }
    t_MBT TickToMBT(std::uint32_t tick) const { return map_.TickToMBT(tick); }
    std::uint32_t MBTToTick(const t_MBT& mbt) const { return map_.MBTToTick(mbt); }
    t_tSigMapRec TimeSigAt(std::uint32_t tick) const { return map_.TimeSigAt(tick); }
    /// The uid of the current event, kNoUid for none. The store keeps it for its user and saves it
    /// in the history, but doesn't interpret it.
    std::int32_t CurrentUid() const { return currentUid_; }
    void SetCurrentUid(std::int32_t uid) { currentUid_ = uid; }

    // Undo and redo (event_history.cpp).

    bool CanUndo() const { return position_ > 0; }
    bool CanRedo() const { return position_ < static_cast<int>(history_.size()); }
    /// Takes the last recorded change back. 1, and in `uid` the event that should become current;
    /// 0 when there is nothing to take back, `uid` untouched.
    int UndoEvent(std::int32_t& uid);
    /// Makes the change that was taken back last again; results likewise.
    int RedoEvent(std::int32_t& uid);
    void ClearHistory();
    /// Whether two events say the same: type, tick, and position or time signature. The id, the
    /// uid and visible don't count; events of types other than 0 and 1 never say the same.
    static bool EventsEqual(const _tagEvent3D& left, const _tagEvent3D& right);

    // CSV event files (event_csv.cpp).

    /// The table as CSV text, line ends CR LF. In range mode the map's records before and behind
    /// the range frame the table.
    CString CsvText() const;
    /// Writes the CSV text in place. Nothing is written for an empty table. kErrorExtension,
    /// kErrorDiskSpace (the file that stands there is untouched), kErrorOpen (also for a pipe or
    /// a device), kErrorAccess (the file is gone).
    int SaveCsv(const CString& path) const;
    /// Replaces the table by that of a CSV file and leaves an empty history; division and time
    /// signatures are taken over in free mode only. Asks for the division when the file doesn't
    /// name it. `report` gets the remarks added. kErrorExtension, kErrorOpen, and as below.
    int LoadCsv(const CString& path, C3DReport& report);
    /// The same from a text. kErrorFormat, kErrorDivision, kErrorNoData. Whatever the question's
    /// hook throws, and std::bad_alloc, leave the store untouched.
    int LoadCsvText(std::string_view text, C3DReport& report);

    // The host's pattern (event_exchange.cpp).

    /// Takes the table from a pattern, which is borrowed, and leaves an empty history. Empties
    /// `report`, fills it and shows it. 1 when it has remarks that stand for a change of position
    /// data (in free mode: any remarks), else 0.
    int LoadFromPattern(CQelCPB_3DPattern* pattern, C3DReport& report);
    /// Writes name and position events into a pattern, in free mode division and time signatures
    /// too; in range mode it gets back those that it came with. Null does nothing. Raises
    /// std::bad_alloc without memory: the pattern then has only part of the table.
    void StoreToPattern(CQelCPB_3DPattern* pattern, std::string_view name) const;

private:
    enum class Operation { add, replace, remove };
    enum class Recording { off, on };  // off in loads, which leave an empty history

    // What a change of a time signature moves besides its own event.
    struct TimeSigState {
        std::vector<t_tSigMapRec> records;
        std::vector<std::pair<std::int32_t, std::uint32_t>> ticks;  // uid and tick of each event
    };

    // One recorded change. Copies carry visible 1, so that undo and redo show a hidden event.
    // `timeSigs` is empty for position events; for time signatures it is the state on the side of
    // the change where the store is not: before it while it stands, after it when it is undone.
    struct HistoryEntry {
        Operation operation;
        _tagEvent3D event;  // as added, as it became, as removed
        _tagEvent3D old;    // as it was before a replacement, else blank
        std::int32_t selection;
        TimeSigState timeSigs;
    };

    /// This store as `ClearEvents` would leave it. Loads fill one and take its place at the end, so
    /// that a load without memory leaves everything as it was.
    C3DEventData Emptied() const;
    int TakeEvent(_tagEvent3D& event, Recording recording);
    // Every change of the events' number or ids goes through these, which keep the counts.
    void AppendEvent(const _tagEvent3D& event);
    void OverwriteEvent(int index, const _tagEvent3D& event);
    void EraseEvent(int index);

    void RealignTimeSigs();
    void CheckInvariants() const;

    TimeSigState TimeSigsBefore(const _tagEvent3D& event) const;
    void RestoreTimeSigs(const TimeSigState& state);
    void PushHistory(Operation operation, const _tagEvent3D& event, const _tagEvent3D& old,
                     TimeSigState before);
    template <typename Change>
    void StepHistory(HistoryEntry& entry, const Change& change);
    void TakeOut(HistoryEntry& entry);
    void PutBack(HistoryEntry& entry);
    void Overwrite(HistoryEntry& entry, const _tagEvent3D& event);

    void TakeEvents(std::vector<_tagEvent3D>& events, C3DReport& report);
    bool TakeTimeSigs(CQelCPB_3DPattern& pattern, C3DReport& report);
    bool TakePositions(CQelCPB_3DPattern& pattern, C3DReport& report);
    void StorePositions(CQelCPB_3DPattern& pattern) const;
    std::vector<t_tSigRec> PatternTimeSigs() const;

    std::vector<_tagEvent3D> events_;
    std::array<int, 256> countOfId_{};
    std::int32_t nextUid_ = 0;
    std::int32_t currentUid_ = kNoUid;
    C3DTimeSigMap map_;
    EventRange range_;
    std::vector<t_tSigRec> toolTimeSigs_;  // as the pattern gave them
    std::vector<HistoryEntry> history_;
    int position_ = 0;  // number of entries that stand applied
};
