#include "platform/qt/accessible.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/combo_peer.h"
#include "platform/qt/convert.h"

namespace toolkit {

namespace {

// The toolkit's own interface gives the chosen row for the name as well, on systems where it
// expects a label beside each box.
class ComboInterface : public QAccessibleWidget {
public:
    explicit ComboInterface(ComboPeer& combo)
        : QAccessibleWidget(&combo, QAccessible::ComboBox), combo_(combo) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? combo_.currentText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = state.hasPopup = true;
        state.expanded = combo_.view()->isVisible();
        return state;
    }
    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << showMenuAction() << pressAction();
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction() && name != pressAction()) {
            return QAccessibleWidget::doAction(name);
        }
        combo_.view()->isVisible() ? combo_.hidePopup() : combo_.showPopup();
    }

private:
    ComboPeer& combo_;
};

QAccessibleInterface* MakeComboInterface(const QString& /*kind*/, QObject* object) {
    auto* combo = dynamic_cast<ComboPeer*>(object);
    return combo == nullptr ? nullptr : new ComboInterface(*combo);
}

}  // namespace

void InstallComboNames() {
    static const bool installed = (QAccessible::installFactory(&MakeComboInterface), true);
    static_cast<void>(installed);
}

// Without words of its own a control keeps the toolkit's choice, its caption.
void SetAccessibleWords(const NativeWindow& window, const ControlTemplate& description) {
    if (description.accessibleName != nullptr) {
        window.widget->setAccessibleName(ToQt(description.accessibleName));
    }
}

}  // namespace toolkit
