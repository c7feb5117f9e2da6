#pragma once

namespace toolkit {

/// Whether the toolkit would find a display to open its windows on. Asked before its application
/// object is made, because that ends the process when there is none.
bool DisplayReachable();

}  // namespace toolkit
