#include <gtest/gtest.h>

#include <QImage>

#include "platform/native.h"
#include "platform/qt/qt_dc.h"
#include "tests/platform/probe_dialog.h"
#include "tests/support/mapped.h"

namespace {

using Rows = std::vector<std::string>;

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

/// A picture of our own with a context on it; reads back as text: '#' red, 'o' blue, '.' white,
/// '?' anything else.
struct Canvas {
    Canvas(int width, int height, qreal ratio = 1.0)
        : picture(std::make_shared<toolkit::ImageStorage>(
              QImage(qRound(width * ratio), qRound(height * ratio), QImage::Format_RGB32), ratio)),
          dc(picture, QRect(0, 0, width, height)) {
        dc.FillRect({0, 0, width, height}, {kWhite});
        dc.SelectObject(CPen{PS_SOLID, 1, kRed});
        dc.SelectObject(CBrush{kBlue});
    }

    void Line(int fromX, int fromY, int toX, int toY) {
        dc.MoveTo(fromX, fromY);
        dc.LineTo(toX, toY);
    }

    Rows Read() const {
        const std::map<QRgb, char> letters{
            {0xFFFF0000U, '#'}, {0xFF0000FFU, 'o'}, {0xFFFFFFFFU, '.'}};
        Rows rows;
        for (int y = 0; y < picture->image.height(); ++y) {
            rows.emplace_back();
            for (int x = 0; x < picture->image.width(); ++x) {
                const auto letter = letters.find(picture->image.pixel(x, y));
                rows.back() += letter == letters.end() ? '?' : letter->second;
            }
        }
        return rows;
    }

    std::shared_ptr<toolkit::ImageStorage> picture;
    toolkit::QtDC dc;
};

TEST(DeviceContext, EllipseFillsItsBoxButForTheRightAndLowerEdge) {
    Canvas canvas(17, 8);
    canvas.dc.Ellipse(1, 1, 8, 8);
    canvas.dc.Ellipse(10, 0, 16, 4);
    canvas.dc.Ellipse(10, 6, 10, 7);                     // No width.
    EXPECT_EQ(canvas.Read(), (Rows{"...........####..",  //
                                   "...###....#oooo#.",  //
                                   "..#ooo#...#oooo#.",  //
                                   ".#ooooo#...####..",  //
                                   ".#ooooo#.........",  //
                                   ".#ooooo#.........",  //
                                   "..#ooo#..........",  //
                                   "...###..........."}));
}

TEST(DeviceContext, APenIsAsThickAsTheRatio) {
    Canvas dot(3, 3, 2.0);
    dot.dc.Ellipse(0, 0, 3, 3);
    EXPECT_EQ(dot.Read(), (Rows{".####.", "######", "##oo##", "##oo##", "######", ".####."}));
    Canvas line(4, 2, 1.5);
    line.Line(0, 0, 2, 0);
    EXPECT_EQ(line.Read(), (Rows{"###...", "###...", "......"}));
}

TEST(DeviceContext, LineLeavesOutItsLastPixelAndMovesThePlace) {
    Canvas canvas(6, 6);
    canvas.Line(0, 0, 4, 0);
    canvas.dc.LineTo(4, 3);
    canvas.Line(3, 5, 0, 5);
    canvas.Line(0, 1, 3, 4);
    canvas.dc.LineTo(3, 4);
    EXPECT_EQ(canvas.Read(), (Rows{"#####.",  //
                                   "#...#.",  //
                                   ".#..#.",  //
                                   "..#...",  //
                                   "......",  //
                                   ".###.."}));
    Canvas clipped(4, 3);
    clipped.Line(-3, -1, 9, 3);
    clipped.Line(2, -9, 2, 9);
    EXPECT_EQ(clipped.Read(), (Rows{"###.", "..##", "..#."}));
}

TEST(DeviceContext, DottedPenHasDashesOfThreeAndGapsOfThree) {
    Canvas canvas(15, 17);
    canvas.dc.SelectObject(CPen{PS_DOT, 1, kRed});
    canvas.dc.SelectObject(CBrush{kWhite});
    canvas.dc.SetBkColor(kBlue);
    canvas.dc.Ellipse(0, 0, 15, 15);
    canvas.Line(0, 15, 15, 15);
    canvas.dc.SetBkMode(TRANSPARENT);
    canvas.Line(0, 16, 8, 16);
    const Rows rows = canvas.Read();
    EXPECT_EQ(rows[15], "###ooo###ooo###");
    EXPECT_EQ(rows[16], "###...##.......");
    // A ring has the same shape in each quarter.
    EXPECT_EQ(rows[7], "#.............#");
    EXPECT_EQ(rows[0], rows[14]);
    for (const std::string& row : Rows(rows.begin(), rows.begin() + 15)) {
        EXPECT_EQ(row, std::string(row.rbegin(), row.rend()));
    }
}

TEST(DeviceContext, BlockTransferCopiesAndMasks) {
    Canvas canvas(4, 2);
    const auto memory = canvas.dc.CreateCompatibleDC();
    memory->FillRect({0, 0, 9, 9}, {kRed});  // Draws nowhere yet.
    CBitmap bitmap = canvas.dc.CreateCompatibleBitmap(2, 2);
    memory->SelectBitmap(&bitmap);
    memory->FillRect({0, 0, 2, 2}, {kBlue});
    memory->FillRect({0, 0, 1, 1}, {kRed});
    canvas.dc.BitBlt(1, 0, 9, 9, *memory, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.Read(), (Rows{".#o.", ".oo."}));
    canvas.dc.FillRect({0, 0, 4, 2}, {RGB(255, 0, 255)});
    canvas.dc.BitBlt(0, 0, 2, 1, *memory, 0, 0, SRCAND);
    canvas.dc.BitBlt(2, 1, 9, 9, *memory, 1, 1, SRCCOPY);
    EXPECT_EQ(canvas.Read(), (Rows{"#o??", "??o?"}));
}

TEST(DeviceContext, ALargeBitmapIsWholeAndLeavesNoMemory) {
    Canvas canvas(2, 1);
    for (int round = 0; round < 2; ++round) {  // An allocator keeps the second one for a third.
        const uchar* place = nullptr;
        {
            CBitmap bitmap = canvas.dc.CreateCompatibleBitmap(1001, 701);
            const auto memory = canvas.dc.CreateCompatibleDC();
            memory->SelectBitmap(&bitmap);
            memory->FillRect({0, 0, 1001, 701}, {kRed});
            memory->FillRect({1000, 700, 1001, 701}, {kBlue});
            canvas.dc.BitBlt(0, 0, 2, 1, *memory, 999, 700, SRCCOPY);
            place = toolkit::StorageOf(bitmap, 1.0)->image.constScanLine(350);
            EXPECT_TRUE(IsMapped(place));
        }
        EXPECT_EQ(canvas.Read(), Rows{"#o"});
        EXPECT_FALSE(IsMapped(place));
    }
}

using Picture = probe::Test;

TEST_F(Picture, IsDrawnAtTheRatioOfItsContext) {
    ASSERT_TRUE(native::EnsureToolkit());
    CBitmap picture;
    ASSERT_TRUE(picture.LoadBitmap(1));
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        Canvas canvas(18, 18, ratio), filled(18, 18, ratio);
        const auto memory = canvas.dc.CreateCompatibleDC();
        memory->SelectBitmap(&picture);
        EXPECT_EQ(picture.Size(), (SIZE{16, 16}));
        canvas.dc.BitBlt(0, 0, 16, 16, *memory, 0, 0, SRCCOPY);
        filled.dc.FillRect({0, 0, 16, 16}, {kRed});
        EXPECT_EQ(canvas.Read(), filled.Read());
    }
}

TEST(DeviceContext, OpaqueTextCoversItsCell) {
    ASSERT_TRUE(native::EnsureToolkit());
    Canvas canvas(40, 20);
    canvas.dc.SetBkColor(kBlue);
    canvas.dc.SetTextColor(kBlue);
    const SIZE extent = canvas.dc.GetTextExtent("12.75");
    ASSERT_GT(extent.cx, 20);
    canvas.dc.TextOut(2, 3, "12.75");
    Canvas cell(40, 20);
    cell.dc.FillRect({2, 3, 2 + extent.cx, 3 + extent.cy}, {kBlue});
    EXPECT_EQ(canvas.Read(), cell.Read());
    EXPECT_EQ(canvas.dc.GetTextExtent("").cx, 0);
}

}  // namespace
