#pragma once

#include <QWidget>
#include <string>

/// What the program asks and says in windows of the toolkit. `parent` may be null. Main thread.

/// Says a failure on stderr too, for those who started the program in a terminal.
void ShowFailure(QWidget* parent, const std::string& words);

/// A pattern file to open, starting in `folder`; "" when the user gave it up.
std::string AskForFileToOpen(QWidget* parent, const std::string& folder);

/// A name to save a pattern under, starting with `suggestion`, a path or a name; the user has
/// agreed to replace what is there. "" when the user gave it up.
std::string AskForFileToSave(QWidget* parent, const std::string& folder,
                             const std::string& suggestion);

/// What to do with a document that is to be closed with changes.
enum class CloseChoice { save, discard, cancel };
CloseChoice AskWhetherToSave(QWidget* parent, const std::string& label);

/// What to do after a save that failed for `reason`.
enum class RetryChoice { tryAgain, otherName, cancel };
RetryChoice AskAfterFailedSave(QWidget* parent, const std::string& reason);
