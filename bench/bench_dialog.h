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

/// Shows the dialog, paints it, runs `inside`, closes it.
inline void RunPainted(CDialog& dialog, const std::function<void(QWidget&)>& inside) {
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            QWidget& window = *QApplication::activeModalWidget();
            window.repaint();
            inside(window);
            dialog.EndDialog(IDCANCEL);
        },
        Qt::QueuedConnection);
    dialog.DoModal();
}

/// The editor's template with nothing behind it: the toolkit's share in the editor.
class BareEditor : public CDialog {
public:
    BareEditor() : CDialog(4000, nullptr) {}
};

/// The editor on a pattern, opened for the length of a measurement.
class BenchDialog : public COrbixMainDlg {
public:
    BenchDialog(CQelCPB_3DPattern& pattern, CZurSMWMan& link)
        : COrbixMainDlg(nullptr, &pattern, nullptr, nullptr, link, nullptr, 0, 0, 0, true, "", "") {
    }

    void Run(const std::function<void(QWidget&)>& inside) { RunPainted(*this, inside); }
};
