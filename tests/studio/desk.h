#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <string>

#include "params/pattern_block.h"
#include "tests/support/temporary_folder.h"

/// A desk of its own for a test: folders for documents, data and configuration, gone at its end,
/// and a user who serves the modal windows that come up.
class Desk {
public:
    Desk();
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    std::string operator/(const std::string& name) const { return folder_ / name; }
    const std::string& Folder() const { return folder_.Path(); }
    /// All that is below the folder, with the bytes of the files.
    std::map<std::string, std::string> Files() const;

    /// What to do with the next modal window that nobody has served yet. A window that comes
    /// unexpected, or one that never comes, fails the test.
    Desk& Next(std::function<void(QWidget&)> serve);
    /// The next one is a box: its text must hold `text`; then the button is clicked.
    Desk& Box(const std::string& text, const std::string& button);
    /// The next one asks for a file: the name and Enter, or Esc for "".
    Desk& File(const std::string& name);

private:
    void Serve();

    TemporaryFolder folder_;
    QTimer poll_;
    QPointer<QWidget> served_;
    std::deque<std::function<void(QWidget&)>> scripts_;
};

/// Clicks the button with this text, marks for keys left out.
void ClickButton(QWidget& window, const std::string& text);

/// A pattern with `count` positions, 120 ticks apart, and `bad` time signatures that a load leaves
/// out with a remark each.
CQelCPB_3DPattern Positions(int count, int bad = 0);
/// The bytes of its file.
std::string Stored(int count, int bad = 0);
