#pragma once

#include <QRegion>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/dialog_template.h"
#include "platform/window.h"

class QEvent;
class QWidget;

namespace toolkit {

struct ImageStorage;
class PeerBase;
class ModalRun;

/// Runs the widget's own handling of an event.
class EventSink {
public:
    virtual bool RunDefault(QEvent& event) = 0;

protected:
    ~EventSink() = default;
};

/// An input event that is being handled as a message.
struct CurrentEvent {
    UINT message;
    QEvent* event;
    EventSink* sink;
    bool done;  ///< The widget has had it.
};

/// What a window that paints keeps of its picture, so that drawing outside a paint event works.
struct Surface {
    std::shared_ptr<ImageStorage> picture;  ///< Client size times pixel ratio.
    QRegion invalid;                        ///< Logical pixels that WM_PAINT has to draw yet.
    bool painting = false;
};

enum class WindowRole { dialog, childDialog, control };

}  // namespace toolkit

/// The record behind a window handle. The records of a window with a window of its own form a
/// tree; after DestroyWindow a record stays readable, with no widget and no owner, until the last
/// message in progress is done.
struct NativeWindow {
    NativeWindow();
    ~NativeWindow();
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;

    toolkit::WindowRole role = toolkit::WindowRole::control;
    ControlKind kind = ControlKind::staticText;
    int id = 0;
    unsigned flags = 0;
    NativeWindow* parent = nullptr;
    std::vector<std::unique_ptr<NativeWindow>> children;  ///< In tab order.

    std::unique_ptr<CWnd> plain;
    CWnd* owner = nullptr;
    QWidget* widget = nullptr;
    toolkit::PeerBase* peer = nullptr;

    toolkit::Surface surface;
    std::map<int, UINT> timers;  ///< The toolkit's timer number to ours.
    std::vector<toolkit::CurrentEvent> events;

    toolkit::ModalRun* modal = nullptr;
    std::optional<int> earlyResult;  ///< Of an EndModal before the loop began.
};

namespace toolkit {

/// Open while something of a window is on the stack; a record or widget that is destroyed
/// meanwhile is freed later.
class DispatchScope {
public:
    DispatchScope();
    ~DispatchScope();
    DispatchScope(const DispatchScope&) = delete;
    DispatchScope& operator=(const DispatchScope&) = delete;
};

bool IsDialog(const NativeWindow& window);
/// The window itself or the nearest dialog above it.
NativeWindow& DialogOf(NativeWindow& window);
/// The outermost window of the tree.
NativeWindow& RootOf(NativeWindow& window);
/// The window that the widget or the nearest of its parents belongs to, or null.
NativeWindow* WindowOf(const QWidget* widget);

/// Adds a record to the parent's children, or as the root of a tree when there is no parent.
NativeWindow& AddWindow(NativeWindow* parent);

NativeWindow* CapturedWindow();
void SetCapturedWindow(NativeWindow* window);

/// Keeps an exception that must not run through the toolkit: the innermost modal dialog ends and
/// raises it again. Without one it is raised again here.
void ReportException();

/// Runs what calls out into handlers from inside the toolkit.
template <typename Call>
void CallOut(Call&& call) {
    const DispatchScope scope;
    try {
        call();
    } catch (...) {
        ReportException();
    }
}

}  // namespace toolkit
