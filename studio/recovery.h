#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "studio/autosave.h"
#include "studio/document.h"

/// Asks about each autosave that a crash has left, naming the saved version and the autosaved one
/// with time and size. Gives the document that the user chose: the autosaved one, which is kept
/// in `slot` from then on, or, when no file was asked for at the start, the saved one. Nothing
/// when there is nothing to choose, or the choice was the saved version while another file, or that
/// one, will be opened anyway, or to decide later. What was not decided stays for the next start,
/// and so does the autosave of a saved version that can't be opened.
std::optional<Document> OfferRecovery(QWidget* parent, const std::string& folder,
                                      const std::string& askedFor, AutosaveSlot& slot);
