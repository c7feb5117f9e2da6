#pragma once

#include <vector>

#include "event/event_record.h"
#include "platform/controls.h"
#include "sequence/api.h"
#include "sequence/musical_types.h"

/// Row pictures of the event list, numbers in its image list.
inline constexpr int kImageCurrentShown = 0;
inline constexpr int kImageCurrentHidden = 1;  ///< Also a current time signature.
inline constexpr int kImageShown = 2;
inline constexpr int kImageHidden = 3;  ///< Also a time signature.
inline constexpr int kImageBeyondZoom = 4;
inline constexpr int kImageRangeStart = 5;
inline constexpr int kImageRangeEnd = 6;

/// The event list, control 4020. It shows one row for each event in view and in range mode two
/// more, a first one for the start of the range and a last one for its end. A view row counts the
/// events from 0; a list row is the view row in free mode and the view row plus 1 in range mode.
/// Every operation but InsertRow and IsBoundaryRow takes and gives view rows. The dialog handles
/// the list's notifications.
class ORBIX_API C3DEventListCtrl : public CListCtrl {
public:
    static const CRuntimeClass classC3DEventListCtrl;

    /// kFreeMode or kRangeMode, fixed for life.
    explicit C3DEventListCtrl(int mode) : mode_(mode) {}

    const CRuntimeClass* GetRuntimeClass() const override;
    const MessageMap* GetMessageMap() const override;

    /// Sets up styles, columns and pictures; once, when the control's window has been made.
    void SetupList();
    /// Appends a row: of an event in view, or in range mode of a range marker.
    void InsertRow(int image, const t_MBT& mbt, const _tagEvent3D& event);
    /// Rewrites what a row says of its event but for the time.
    void UpdateRow(int viewRow, const _tagEvent3D& event);
    /// Ignored for a row that is not in view.
    void SetRowImage(int image, int viewRow);

    /// Gives the row focus and selection and scrolls it into sight; in range mode the two extra
    /// rows lose theirs. Other rows keep their selection.
    void SelectListRow(int viewRow);
    void DeselectRow(int viewRow);
    void DeleteRow(int viewRow);

    /// The selected rows in rising order, the extra rows left out; gives their number.
    int GetSelectedRows(std::vector<int>& viewRows) const;
    /// The selected row when it is the only one, else -1.
    int GetSingleSelectedRow() const;
    /// Whether the list row is one of the extra rows.
    bool IsBoundaryRow(int listRow) const;

private:
    int ListRow(int viewRow) const { return viewRow + (mode_ == kRangeMode ? 1 : 0); }
    bool IsInView(int viewRow) const;

    int mode_;
    CImageList images_;
};
