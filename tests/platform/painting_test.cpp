#include <gtest/gtest.h>

#include "platform/message_map.h"
#include "tests/platform/probe_dialog.h"
#include "tests/support/ui_driver.h"

namespace {

using probe::ProbeDialog;

constexpr COLORREF kRed = RGB(255, 0, 0);

class Painting : public testing::Test {
protected:
    int Paints() {
        int paints = 0;
        for (const std::string& line : dialog_.TakeLog()) {
            paints += line == "paint" ? 1 : 0;
        }
        return paints;
    }

    probe::Resources resources_;
    ProbeDialog dialog_;
};

TEST_F(Painting, DrawingOutsideAPaintCostsNoPaintMessage) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        user.Settle();
        EXPECT_EQ(Paints(), 1);
        const QPoint place = user.PointOf(probe::kPlace);
        {
            CClientDC dc(&dialog_);
            static_cast<CDC*>(dc)->FillRect({place.x(), place.y(), place.x() + 4, place.y() + 4},
                                            {kRed});
        }
        EXPECT_EQ(user.Grab().pixelColor(place), QColor(Qt::red));
        EXPECT_EQ(Paints(), 0);
        // Invalid is erased and drawn anew, once.
        dialog_.Invalidate();
        dialog_.Invalidate();
        EXPECT_NE(user.Grab().pixelColor(place), QColor(Qt::red));
        EXPECT_EQ(Paints(), 1);
        // UpdateWindow paints at once, and only what is invalid.
        dialog_.Invalidate();
        dialog_.UpdateWindow();
        dialog_.UpdateWindow();
        EXPECT_EQ(Paints(), 1);
        user.Grab();
        EXPECT_EQ(Paints(), 0);
    });
}

TEST_F(Painting, APaintContextDrawsOnWhatIsShown) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        const QPoint place = user.PointOf(probe::kPlace);
        dialog_.onMessage = [&](UINT message, WPARAM, LPARAM) {
            if (message == WM_PAINT) {
                CPaintDC dc(&dialog_);
                dc->FillRect({place.x(), place.y(), place.x() + 2, place.y() + 2}, {kRed});
            }
            return message == WM_PAINT;
        };
        dialog_.Invalidate();
        const QImage image = user.Grab();
        EXPECT_EQ(image.pixelColor(place), QColor(Qt::red));
        EXPECT_NE(image.pixelColor(place + QPoint(2, 0)), QColor(Qt::red));
    });
}

TEST_F(Painting, AStaticCanBePaintedByItsOwner) {
    class Ruler : public CStatic {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_PAINT) {
                return CStatic::WindowProc(message, wParam, lParam);
            }
            CPaintDC dc(this);
            dc->FillRect({0, 0, 3, 3}, {kRed});
            return 0;
        }
    } ruler;
    RunDialog(dialog_, [&](DialogDriver& user) {
        CDataExchange exchange(&dialog_, FALSE);
        DDX_Control(&exchange, probe::kPainted, ruler);
        ruler.Invalidate();
        const QPoint corner = user.Widget(probe::kPainted).pos();
        const QImage image = user.Grab();
        EXPECT_EQ(image.pixelColor(corner + QPoint(2, 2)), QColor(Qt::red));
        EXPECT_NE(image.pixelColor(corner + QPoint(3, 3)), QColor(Qt::red));
    });
}

TEST_F(Painting, TheDialogColoursItsLabels) {
    RunDialog(dialog_, [&](DialogDriver& user) {
        const auto redPixels = [&] {
            const QRect label = user.Widget(probe::kLabel).geometry();
            const QImage image = user.Grab().copy(label);
            int count = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor pixel = image.pixelColor(x, y);
                    count += pixel.red() > 200 && pixel.green() < 120 ? 1 : 0;
                }
            }
            return count;
        };
        EXPECT_EQ(redPixels(), 0);
        dialog_.onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
            if (message == WM_CTLCOLOR) {
                const auto& query = *reinterpret_cast<const CtlColorQuery*>(wParam);
                EXPECT_EQ(query.control->GetDlgCtrlID(), probe::kLabel);
                query.dc->SetTextColor(kRed);
            }
            return false;
        };
        user.Widget(probe::kLabel).update();
        EXPECT_GT(redPixels(), 10);
    });
}

}  // namespace
