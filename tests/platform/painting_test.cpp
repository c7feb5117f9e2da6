#include "platform/message_map.h"
#include "tests/platform/probe_dialog.h"

namespace {

using namespace probe;

constexpr COLORREF kRed = RGB(255, 0, 0);

using Painting = probe::Test;

TEST_F(Painting, DrawingOutsideAPaintCostsNoPaintMessage) {
    Run([&](DialogDriver& user) {
        const QPoint place = user.PointOf(kPlace);
        const RECT box{place.x(), place.y(), place.x() + 4, place.y() + 4};
        user.Settle();
        int paints = 0;
        dialog_.onMessage = [&](UINT message, WPARAM, LPARAM) {
            paints += message == WM_PAINT ? 1 : 0;
            return false;
        };
        static_cast<CDC*>(CClientDC(&dialog_))->FillRect(box, {kRed});
        EXPECT_EQ(user.Grab().pixelColor(place), QColor(Qt::red));
        EXPECT_EQ(paints, 0);
        // Invalid is erased and drawn anew, once.
        dialog_.Invalidate();
        dialog_.Invalidate();
        EXPECT_NE(user.Grab().pixelColor(place), QColor(Qt::red));
        EXPECT_EQ(paints, 1);
        // UpdateWindow paints at once, and only what is invalid.
        dialog_.Invalidate();
        dialog_.UpdateWindow();
        EXPECT_EQ(paints, 2);
        dialog_.UpdateWindow();
        user.Grab();
        EXPECT_EQ(paints, 2);
    });
}

TEST_F(Painting, TheDialogColoursItsLabels) {
    Run([&](DialogDriver& user) {
        QWidget& label = user.Widget(kLabel);
        const auto redPixels = [&] {
            const QImage image = user.Grab().copy(label.geometry());
            int count = 0;
            for (int i = 0; i < image.width() * image.height(); ++i) {
                const QColor pixel = image.pixelColor(i % image.width(), i / image.width());
                count += pixel.red() > 200 && pixel.green() < 120 ? 1 : 0;
            }
            return count;
        };
        EXPECT_EQ(redPixels(), 0);
        dialog_.onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
            if (message == WM_CTLCOLOR) {
                const auto& query = *reinterpret_cast<const CtlColorQuery*>(wParam);
                EXPECT_EQ(query.control->GetDlgCtrlID(), kLabel);
                query.dc->SetTextColor(kRed);
            }
            return false;
        };
        label.update();
        EXPECT_GT(redPixels(), 10);
    });
}

}  // namespace
