#pragma once

#include <QIcon>
#include <QTreeView>

#include "platform/qt/list_model.h"
#include "platform/qt/peer.h"

class CImageList;

namespace toolkit {

struct CellColours {
    QColor text;
    QColor background;
};

/// The report list. Rows, texts and states live in the model; the toolkit's view is brought in
/// line with them in one step (Flush) when it next has to show or handle something, and what the
/// user does to the view's selection comes back as states with their notices.
class ListPeer : public Peer<QTreeView> {
public:
    ListPeer(NativeWindow& record, QWidget* parent);

    ListModel& Model() { return model_; }
    const ListModel& Model() const { return model_; }

    void SetExtendedStyle(DWORD style);
    bool HasGrid() const { return (style_ & LVS_EX_GRIDLINES) != 0; }
    void SetImages(const CImageList* images);
    QSize ImageSize() const;
    /// Null when the row has no image.
    const QIcon* IconOfRow(int row) const;

    void InsertColumn(int column, const QString& title, int width);
    int InsertRow(int row, int image);
    void DeleteRow(int row);
    void DeleteAll();
    /// Sets the masked bits, of all rows when the row is -1, and raises the notices.
    void SetState(int row, UINT state, UINT mask);
    void ShowRow(int row);
    /// A cell looks different now.
    void CellChanged() { Schedule(); }

    /// Asks the owner through custom draw.
    void AskCellColours(int row, int column, CellColours& colours);

    bool RunDefault(QEvent& event) override;

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void customEvent(QEvent* event) override;

private:
    // The default procedure of events that the toolkit brings to the view's inner widget.
    class Viewport : public EventSink {
    public:
        explicit Viewport(ListPeer& list) : list_(list) {}
        bool RunDefault(QEvent& event) override { return list_.RunViewportDefault(event); }

    private:
        ListPeer& list_;
    };

    bool RunViewportDefault(QEvent& event);
    void RaiseClickNotice(const QEvent& event);
    void Schedule();
    void Flush();
    void FlushStates();
    /// The states that the view's selection stands for.
    std::vector<UINT> StatesOfView() const;
    void TakeStatesFromView();
    /// One row's new state, with its notice; false when the rows have changed under it.
    bool ChangeState(int row, UINT state);
    bool ReportState(int row, UINT before, UINT state);
    void RowsChanged();
    LRESULT NotifyRow(int code, int row, UINT oldState, UINT newState);
    LRESULT AskCustomDraw(DWORD stage, int row, int column, CellColours* colours);

    ListModel model_;
    Viewport viewport_;
    const CImageList* images_ = nullptr;
    std::vector<QIcon> icons_;
    DWORD style_ = 0;
    unsigned generation_ = 0;  ///< Counts changes of the rows themselves.
    int rowToShow_ = -1;
    bool rowsStale_ = false;    ///< The view's rows are not the model's.
    bool statesStale_ = false;  ///< The view's selection is not the model's.
    bool scheduled_ = false;
    bool flushing_ = false;
    bool viewTouched_ = false;  ///< The view's selection changed by the user.
    bool inEvent_ = false;
    bool asksRows_ = false;  ///< Answers of custom draw during one paint.
    mutable bool asksCells_ = false;
};

}  // namespace toolkit
