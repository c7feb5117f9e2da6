#include <gtest/gtest.h>

#include <QImage>

#include "platform/native.h"
#include "platform/qt/qt_dc.h"
#include "tests/platform/probe_dialog.h"

namespace {

using Rows = std::vector<std::string>;

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

/// A picture of our own with a context on it; reads back as text: '#' red, 'o' blue, '.' white,
/// '?' anything else.
class Canvas {
public:
    Canvas(int width, int height, qreal ratio = 1.0)
        : picture_(std::make_shared<toolkit::ImageStorage>(
              QImage(qRound(width * ratio), qRound(height * ratio), QImage::Format_RGB32), ratio)),
          dc(picture_, QRect(0, 0, width, height)) {
        dc.FillRect({0, 0, width, height}, {kWhite});
        dc.SelectObject(CPen{PS_SOLID, 1, kRed});
        dc.SelectObject(CBrush{kBlue});
    }

    Rows Read() const {
        Rows rows;
        for (int y = 0; y < picture_->image.height(); ++y) {
            rows.emplace_back();
            for (int x = 0; x < picture_->image.width(); ++x) {
                rows.back() += Letter(picture_->image.pixel(x, y));
            }
        }
        return rows;
    }

private:
    static char Letter(QRgb pixel) {
        switch (pixel) {
            case 0xFFFF0000U:
                return '#';
            case 0xFF0000FFU:
                return 'o';
            case 0xFFFFFFFFU:
                return '.';
            default:
                return '?';
        }
    }

    std::shared_ptr<toolkit::ImageStorage> picture_;

public:
    toolkit::QtDC dc;
};

TEST(DeviceContext, EllipseFillsItsBoxButForTheRightAndLowerEdge) {
    Canvas dot(9, 9);
    dot.dc.Ellipse(1, 1, 8, 8);
    EXPECT_EQ(dot.Read(), (Rows{".........",  //
                                "...###...",  //
                                "..#ooo#..",  //
                                ".#ooooo#.",  //
                                ".#ooooo#.",  //
                                ".#ooooo#.",  //
                                "..#ooo#..",  //
                                "...###...",  //
                                "........."}));
    Canvas flat(6, 4);
    flat.dc.Ellipse(0, 0, 6, 4);
    EXPECT_EQ(flat.Read(), (Rows{".####.", "#oooo#", "#oooo#", ".####."}));
    Canvas none(2, 2);
    none.dc.Ellipse(1, 1, 1, 2);
    EXPECT_EQ(none.Read(), (Rows{"..", ".."}));
}

TEST(DeviceContext, EllipseScalesWithAPenAsThickAsTheRatio) {
    Canvas dot(4, 4, 2.0);
    dot.dc.Ellipse(0, 0, 4, 4);
    EXPECT_EQ(dot.Read(), (Rows{"..####..",  //
                                ".######.",  //
                                "###oo###",  //
                                "##oooo##",  //
                                "##oooo##",  //
                                "###oo###",  //
                                ".######.",  //
                                "..####.."}));
}

TEST(DeviceContext, LineLeavesOutItsLastPixelAndMovesThePlace) {
    Canvas canvas(6, 6);
    canvas.dc.MoveTo(0, 0);
    canvas.dc.LineTo(4, 0);
    canvas.dc.LineTo(4, 3);
    canvas.dc.MoveTo(3, 5);
    canvas.dc.LineTo(0, 5);
    canvas.dc.MoveTo(0, 1);
    canvas.dc.LineTo(3, 4);
    canvas.dc.LineTo(3, 4);
    EXPECT_EQ(canvas.Read(), (Rows{"#####.",  //
                                   "#...#.",  //
                                   ".#..#.",  //
                                   "..#...",  //
                                   "......",  //
                                   ".###.."}));
}

TEST(DeviceContext, LinesAreClippedToThePicture) {
    Canvas canvas(4, 3);
    canvas.dc.MoveTo(-3, -1);
    canvas.dc.LineTo(9, 3);
    canvas.dc.MoveTo(2, -9);
    canvas.dc.LineTo(2, 9);
    EXPECT_EQ(canvas.Read(), (Rows{"###.", "..##", "..#."}));
}

TEST(DeviceContext, ThickLineCoversTheSameLogicalPixels) {
    Canvas canvas(4, 2, 1.5);
    canvas.dc.MoveTo(0, 0);
    canvas.dc.LineTo(2, 0);
    EXPECT_EQ(canvas.Read(), (Rows{"###...", "###...", "......"}));
}

TEST(DeviceContext, DottedPenHasDashesOfThreeAndGapsOfThree) {
    Canvas canvas(14, 2);
    canvas.dc.SelectObject(CPen{PS_DOT, 1, kRed});
    canvas.dc.SetBkColor(kBlue);
    canvas.dc.MoveTo(0, 0);
    canvas.dc.LineTo(14, 0);
    canvas.dc.SetBkMode(TRANSPARENT);
    canvas.dc.MoveTo(0, 1);
    canvas.dc.LineTo(8, 1);
    EXPECT_EQ(canvas.Read(), (Rows{"###ooo###ooo##", "###...##......"}));

    Canvas ring(15, 15);
    ring.dc.SelectObject(CPen{PS_DOT, 1, kRed});
    ring.dc.SelectObject(CBrush{kWhite});
    ring.dc.SetBkColor(kBlue);
    ring.dc.Ellipse(0, 0, 15, 15);
    const Rows rows = ring.Read();
    // The same shape in each quarter.
    EXPECT_EQ(rows[7], "#.............#");
    EXPECT_EQ(rows[0], rows[14]);
    for (const std::string& row : rows) {
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
    EXPECT_EQ(canvas.Read(), (Rows{"#o??", "????"}));
    canvas.dc.BitBlt(2, 1, 9, 9, *memory, 1, 1, SRCCOPY);
    EXPECT_EQ(canvas.Read(), (Rows{"#o??", "??o?"}));
}

TEST(DeviceContext, PictureResourceIsDrawnAtTheRatioOfItsContext) {
    ASSERT_TRUE(native::EnsureToolkit());
    const probe::Resources resources;
    CBitmap picture;
    ASSERT_TRUE(picture.LoadBitmap(1));
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        Canvas canvas(18, 18, ratio);
        const auto memory = canvas.dc.CreateCompatibleDC();
        memory->SelectBitmap(&picture);
        EXPECT_EQ(picture.Size(), (SIZE{16, 16}));
        canvas.dc.BitBlt(0, 0, 16, 16, *memory, 0, 0, SRCCOPY);
        const Rows rows = canvas.Read();
        const auto full = static_cast<std::size_t>(16 * ratio);
        EXPECT_EQ(rows[full - 1], std::string(full, '#') + std::string(rows[0].size() - full, '.'));
        EXPECT_EQ(rows[full], std::string(rows[0].size(), '.'));
    }
}

TEST(DeviceContext, TextStandsInItsCellAndOpaqueTextCoversIt) {
    ASSERT_TRUE(native::EnsureToolkit());
    Canvas canvas(40, 20);
    canvas.dc.SetBkColor(kBlue);
    canvas.dc.SetTextColor(kBlue);
    const SIZE extent = canvas.dc.GetTextExtent("12.75");
    ASSERT_GT(extent.cx, 20);
    canvas.dc.TextOut(2, 3, "12.75");
    const Rows rows = canvas.Read();
    const std::string covered = ".." + std::string(static_cast<std::size_t>(extent.cx), 'o') +
                                std::string(static_cast<std::size_t>(38 - extent.cx), '.');
    EXPECT_EQ(rows[2], std::string(40, '.'));
    EXPECT_EQ(rows[3], covered);
    EXPECT_EQ(rows[static_cast<std::size_t>(2 + extent.cy)], covered);
    EXPECT_EQ(rows[static_cast<std::size_t>(3 + extent.cy)], std::string(40, '.'));
    EXPECT_EQ(canvas.dc.GetTextExtent("").cx, 0);
}

}  // namespace
