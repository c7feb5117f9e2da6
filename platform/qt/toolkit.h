#pragma once

namespace toolkit {

/// To be called when a dialog has run. The application object that the library made for its host
/// is deleted when the process ends, and it has to go before what the toolkit keeps in static
/// objects. Some of those are made only while windows are in use, so that its turn is noted anew
/// after the first dialog.
void NoteFirstRun();

}  // namespace toolkit
