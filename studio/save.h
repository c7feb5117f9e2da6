#pragma once

#include <QWidget>

#include "studio/document.h"
#include "studio/studio_settings.h"

/// Bringing a document to its file, with the user's help where it takes some. Each gives whether
/// the document is saved (MayClose: saved or given up); where not, it is as it was. Main thread.

/// To the document's own file; asks for a name when there is none.
bool SaveDocument(QWidget* parent, Document& document, StudioSettings& settings);

/// To a name that the user chooses.
bool SaveDocumentAs(QWidget* parent, Document& document, StudioSettings& settings);

/// Whether the document may go away: asks about changes, and saves them if the user wants that.
bool MayClose(QWidget* parent, Document& document, StudioSettings& settings);
