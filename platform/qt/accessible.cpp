#include "platform/qt/accessible.h"

#include <QWidget>

#include "platform/qt/convert.h"

namespace toolkit {

// Without words of its own a control keeps the toolkit's choice, its caption.
void SetAccessibleWords(const NativeWindow& window, const ControlTemplate& description) {
    if (description.accessibleName != nullptr) {
        window.widget->setAccessibleName(ToQt(description.accessibleName));
    }
}

}  // namespace toolkit
