#pragma once

#include "view/view_entry.h"

#if defined(_WIN32)
#define VANZET_VIEW_EXPORT __declspec(dllexport)
#else
#define VANZET_VIEW_EXPORT __attribute__((visibility("default")))
#endif

extern "C" {

/// The entry of view/view_entry.h: a view with windows of Qt.
VANZET_VIEW_EXPORT vanzet::view::ViewAnswer vanzetQtView(std::int32_t version);
}
