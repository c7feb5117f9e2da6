#pragma once

#include <QEvent>
#include <QWidget>

namespace toolkit {

/// Whether the event is the press of an access key, the letter after the "&" in a caption, with
/// Alt.
inline bool IsAccessKey(const QEvent& event) {
    return event.type() == QEvent::Shortcut;
}

/// What an access key does to the control that it stands for: it takes the focus, so that a number
/// still being typed elsewhere is committed first, and a button is clicked. Null does nothing.
void UseAccessKey(QWidget* control);

}  // namespace toolkit
