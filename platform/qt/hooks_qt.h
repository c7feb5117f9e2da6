#pragma once

namespace toolkit {

/// Fills those hooks that are empty with the toolkit's own boxes, menus and states.
void InstallHooks();

}  // namespace toolkit
