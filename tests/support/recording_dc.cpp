#include "tests/support/recording_dc.h"

#include <cstdio>

namespace {

std::string Hex(COLORREF colour) {
    char text[7];
    std::snprintf(text, sizeof text, "%02X%02X%02X", GetRValue(colour), GetGValue(colour),
                  GetBValue(colour));
    return text;
}

std::string List(std::initializer_list<int> numbers) {
    std::string text;
    for (const int number : numbers) {
        text += (text.empty() ? "(" : ",") + std::to_string(number);
    }
    return text + ")";
}

}  // namespace

std::unique_ptr<CDC> RecordingDC::CreateCompatibleDC() {
    const std::string name = (name_ == "dc" ? "mem" : name_ + ".") + std::to_string(++memories_);
    return refusesMemory_ ? nullptr : std::make_unique<RecordingDC>(log_, name);
}

CBitmap RecordingDC::CreateCompatibleBitmap(int width, int height) {
    CBitmap bitmap;
    bitmap.SetStorage(nullptr, {width, height});
    return bitmap;
}

void RecordingDC::SelectBitmap(CBitmap* bitmap) {
    const std::string what = bitmap == nullptr ? "nothing"
                             : bitmap->ResourceId() != 0
                                 ? "picture " + std::to_string(bitmap->ResourceId())
                                 : "bitmap " + List({bitmap->Size().cx, bitmap->Size().cy});
    log_.push_back(name_ + " select " + what);
}

void RecordingDC::FillRect(const RECT& rect, const CBrush& brush) {
    log_.push_back(name_ + " fill " + List({rect.left, rect.top, rect.right, rect.bottom}) + " " +
                   Hex(brush.colour));
}

void RecordingDC::Ellipse(int left, int top, int right, int bottom) {
    log_.push_back(name_ + " ellipse " + List({left, top, right, bottom}) + Pen() + " brush " +
                   Hex(brush_.colour));
}

void RecordingDC::LineTo(int x, int y) {
    log_.push_back(name_ + " line " + List({place_.x, place_.y, x, y}) + Pen());
    place_ = {x, y};
}

void RecordingDC::TextOut(int x, int y, std::string_view text) {
    log_.push_back(name_ + " text " + List({x, y}) + " \"" + std::string(text) + "\" " +
                   Hex(textColour_) + " font " + std::to_string(font_.height) +
                   (backgroundMode_ == OPAQUE ? " on " + Hex(backgroundColour_) : ""));
}

SIZE RecordingDC::GetTextExtent(std::string_view text) {
    return {static_cast<LONG>(5 * text.size()), 9};
}

void RecordingDC::BitBlt(int x, int y, int width, int height, CDC& source, int sourceX, int sourceY,
                         DWORD operation) {
    log_.push_back(name_ + " blt " + List({x, y, width, height}) + " from " +
                   dynamic_cast<RecordingDC&>(source).name_ + " " + List({sourceX, sourceY}) +
                   (operation == SRCAND ? " and" : " copy"));
}

std::string RecordingDC::Pen() const {
    return pen_.style == PS_DOT ? " pen dot " + Hex(pen_.colour) + " on " + Hex(backgroundColour_)
                                : " pen solid " + Hex(pen_.colour);
}
