#pragma once

#include <QEventLoop>
#include <exception>

struct NativeWindow;

namespace toolkit {

/// One modal event loop. They nest like the calls that run them.
class ModalRun {
public:
    explicit ModalRun(NativeWindow& dialog);
    ~ModalRun();
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;

    /// Runs until End, Fail or WindowGone; raises again what Fail was given.
    int Run();
    void End(int result);
    void Fail(std::exception_ptr exception);
    /// The dialog's window has been taken apart.
    void WindowGone();

    static ModalRun* Innermost();

private:
    void ShowDialog();

    NativeWindow* dialog_;
    QEventLoop loop_;
    std::exception_ptr exception_;
    int result_;
    bool ended_ = false;
};

}  // namespace toolkit
