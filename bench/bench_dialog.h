#pragma once

#include <QApplication>
#include <QWidget>
#include <functional>

#include "dialog/orbix_main_dlg.h"
#include "link/smw_manager.h"
#include "platform/hooks.h"

/// The toolkit's application, made when it is first asked for and never deleted: it would have to
/// go before the toolkit's own static objects, some of which are made after it.
inline QApplication& Application() {
    static int argc = 1;
    static char name[] = "bench";
    static char* argv[] = {name, nullptr};
    static QApplication* application = new QApplication(argc, argv);
    return *application;
}

/// The editor on a pattern, opened for the length of a measurement.
class BenchDialog : public COrbixMainDlg {
public:
    BenchDialog(CQelCPB_3DPattern& pattern, CZurSMWMan& link)
        : COrbixMainDlg(nullptr, &pattern, nullptr, nullptr, link, nullptr, 0, 0, 0, true, "", "") {
    }

    /// Shows the dialog, paints it, runs `inside`, closes it.
    void Run(const std::function<void(QWidget&)>& inside) {
        QMetaObject::invokeMethod(
            qApp,
            [this, &inside] {
                QWidget& window = *QApplication::activeModalWidget();
                window.repaint();
                inside(window);
                EndDialog(IDCANCEL);
            },
            Qt::QueuedConnection);
        DoModal();
    }
};
