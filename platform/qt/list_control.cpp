#include "platform/native.h"
#include "platform/qt/list_peer.h"

// The list's operations on handles.

namespace {

toolkit::ListPeer* ListOf(HWND window) {
    return toolkit::PeerAs<toolkit::ListPeer>(window);
}

toolkit::ListPeer* ListWithRow(HWND window, int row) {
    toolkit::ListPeer* list = ListOf(window);
    return list != nullptr && list->Model().HasRow(row) ? list : nullptr;
}

}  // namespace

namespace native {

void ListSetExtendedStyle(HWND list, DWORD style) {
    if (auto* peer = ListOf(list)) {
        peer->SetExtendedStyle(style);
    }
}

void ListSetImages(HWND list, const CImageList* images) {
    if (auto* peer = ListOf(list)) {
        peer->SetImages(images);
    }
}

void ListInsertColumn(HWND list, int column, const CString& title, int width) {
    if (auto* peer = ListOf(list)) {
        peer->InsertColumn(column, toolkit::ToQt(title), width);
    }
}

int ListInsertItem(HWND list, int row, int image) {
    auto* peer = ListOf(list);
    return peer == nullptr ? -1 : peer->InsertRow(row, image);
}

void ListSetText(HWND list, int row, int column, const CString& text) {
    auto* peer = ListWithRow(list, row);
    if (peer == nullptr || column < 0) {
        return;
    }
    auto& texts = peer->Model().Row(row).texts;
    if (static_cast<std::size_t>(column) < texts.size()) {
        texts[static_cast<std::size_t>(column)] = toolkit::ToQt(text);
        peer->CellChanged();
    }
}

CString ListGetText(HWND list, int row, int column) {
    auto* peer = ListOf(list);
    return peer == nullptr ? CString() : toolkit::FromQt(peer->Model().TextAt(row, column));
}

void ListSetImage(HWND list, int row, int image) {
    if (auto* peer = ListWithRow(list, row)) {
        peer->Model().Row(row).image = image;
        peer->CellChanged();
    }
}

int ListGetImage(HWND list, int row) {
    auto* peer = ListWithRow(list, row);
    return peer == nullptr ? -1 : peer->Model().Row(row).image;
}

void ListDeleteItem(HWND list, int row) {
    if (auto* peer = ListOf(list)) {
        peer->DeleteRow(row);
    }
}

void ListDeleteAll(HWND list) {
    if (auto* peer = ListOf(list)) {
        peer->DeleteAll();
    }
}

int ListCount(HWND list) {
    auto* peer = ListOf(list);
    return peer == nullptr ? 0 : peer->Model().Count();
}

int ListNext(HWND list, int row, UINT flags) {
    auto* peer = ListOf(list);
    const int count = peer == nullptr ? 0 : peer->Model().Count();
    for (int next = std::max(row, -1) + 1; next < count; ++next) {
        if ((peer->Model().Row(next).state & flags) == flags) {
            return next;
        }
    }
    return -1;
}

void ListSetState(HWND list, int row, UINT state, UINT mask) {
    if (auto* peer = ListOf(list)) {
        peer->SetState(row, state, mask);
    }
}

UINT ListGetState(HWND list, int row, UINT mask) {
    auto* peer = ListWithRow(list, row);
    return peer == nullptr ? 0U : peer->Model().Row(row).state & mask;
}

void ListEnsureVisible(HWND list, int row) {
    if (auto* peer = ListOf(list)) {
        peer->ShowRow(row);
    }
}

void ListSetDescription(HWND list, int row, const CString& sentence) {
    if (auto* peer = ListWithRow(list, row)) {
        peer->Model().Row(row).description = toolkit::ToQt(sentence);
    }
}

}  // namespace native
