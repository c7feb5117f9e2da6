#include "res/resources.h"

#define SVG16(body)                                                                            \
    "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16' viewBox='0 0 16 16'>" body \
    "</svg>"

#define FRAME \
    "<rect x='1.5' y='1.5' width='13' height='13' rx='1.5' fill='#fff4b8' stroke='#a86f00'/>"
#define CHECK                                                                          \
    "<path d='M4 8.3 L7 11.3 L12.2 4.8' fill='none' stroke='#1b7f2a' stroke-width='2'" \
    " stroke-linecap='round' stroke-linejoin='round'/>"

static constexpr PictureResource kPictures[] = {
    // Rows of the event list: current and shown, shown, neither, current and hidden.
    {1003, 16, SVG16(FRAME CHECK)},
    {1004, 16, SVG16(CHECK)},
    {1005, 16, SVG16("")},
    {1006, 16, SVG16(FRAME)},
    // Save: a disk.
    {1007, 16,
     SVG16("<path d='M2.5 1.5 H12 L14.5 4 V14.5 H1.5 V2.5 Z' fill='#4a6fb5' stroke='#2b4475'"
           " stroke-linejoin='round'/>"
           "<rect x='4.5' y='2' width='6.5' height='4' fill='#dfe6f2'/>"
           "<rect x='8.5' y='2.7' width='1.5' height='2.6' fill='#2b4475'/>"
           "<rect x='4' y='8.5' width='8' height='6' fill='#ffffff'/>"
           "<path d='M5.5 10.5 H10.5 M5.5 12.5 H10.5' stroke='#8a94a6'/>")},
    // Load: an open folder.
    {1008, 16,
     SVG16("<path d='M1.5 13.5 V3.5 Q1.5 2.5 2.5 2.5 H6 L7.5 4.5 H12.5 Q13.5 4.5 13.5 5.5 V7'"
           " fill='#e9b949' stroke='#8f6410' stroke-linejoin='round'/>"
           "<path d='M1.5 13.5 L4 7 H15.3 L12.8 13.5 Z' fill='#fbdc8a' stroke='#8f6410'"
           " stroke-linejoin='round'/>")},
    // Rows of the event list: beyond the zoom, range start, range end.
    {1009, 16, SVG16("")},
    {1010, 16,
     SVG16("<path d='M6 2 H10 V8 H13.2 L8 13.8 L2.8 8 H6 Z' fill='#2f6fde' stroke='#163f8a'"
           " stroke-linejoin='round'/>")},
    {1011, 16,
     SVG16("<path d='M6 14 H10 V8 H13.2 L8 2.2 L2.8 8 H6 Z' fill='#2f6fde' stroke='#163f8a'"
           " stroke-linejoin='round'/>")},
};

#undef SVG16
#undef FRAME
#undef CHECK

constinit const std::span<const PictureResource> kIcons = kPictures;
