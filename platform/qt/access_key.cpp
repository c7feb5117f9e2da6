#include "platform/qt/access_key.h"

#include <QAbstractButton>
#include <QPointer>

namespace toolkit {

void UseAccessKey(QWidget* control) {
    if (control == nullptr || !control->isEnabled()) {
        return;
    }
    const QPointer<QAbstractButton> button = qobject_cast<QAbstractButton*>(control);
    control->setFocus(Qt::ShortcutFocusReason);
    // Losing the focus runs handlers, which may close the window.
    if (button != nullptr && button->isEnabled()) {
        button->click();
    }
}

}  // namespace toolkit
