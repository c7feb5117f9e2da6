#pragma once

/// Marks what the shared library hands out; everything else stays inside it. It stands in the
/// lowest room because every room has something to export.
#define ORBIX_API __attribute__((visibility("default")))
