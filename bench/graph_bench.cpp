// One frame of a drag at a full table (1,024 dots, numbers and lines on): from the mouse move to
// the repainted window. Two yardsticks in the same run: the floor, two empty planes painted and
// shown, and the same picture drawn plainly, one toolkit call for each dot, line and text. Run it
// with QT_SCALE_FACTOR=1 and =2 for the two pixel ratios.

#include <benchmark/benchmark.h>

#include <QMouseEvent>
#include <QPainter>

#include "bench/bench_dialog.h"
#include "bench/full_table.h"

namespace {

constexpr int kPlaneControls[] = {1018, 1002};
constexpr WPARAM kZoomBox = 1023;

QRect PlaneOf(const BenchDialog& dialog, int plane) {
    RECT place = dialog.GetDlgItem(kPlaneControls[plane])->GetWindowRect();
    dialog.ScreenToClient(place);
    return {place.left, place.top, Width(place), Height(place)};
}

void ChooseWidestZoom(BenchDialog& dialog) {
    dialog.GetCmbBoxZoom()->SetCurSel(0);
    dialog.SendMessage(WM_COMMAND, (static_cast<WPARAM>(CBN_SELCHANGE) << 16U) | kZoomBox);
}

void SendMouse(QWidget& window, QEvent::Type type, QPoint place) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::MouseButtons() : Qt::LeftButton;
    QMouseEvent event(type, place, window.mapToGlobal(QPointF(place)), button, held,
                      Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
}

// Presses on pixels of plane 0 until one of them takes hold of a dot.
bool GrabDot(BenchDialog& dialog, QWidget& window, QPoint& place) {
    const QRect plane = PlaneOf(dialog, 0);
    for (place.ry() = plane.top() + 30; place.y() < plane.bottom() - 30; place.ry() += 3) {
        for (place.rx() = plane.left() + 60; place.x() < plane.right() - 60; place.rx() += 3) {
            SendMouse(window, QEvent::MouseButtonPress, place);
            SendMouse(window, QEvent::MouseMove, place);
            if (CWnd::GetCapture() != nullptr) {
                return true;
            }
            SendMouse(window, QEvent::MouseButtonRelease, place);
        }
    }
    return false;
}

void DragFrame(benchmark::State& state) {
    Application();
    CQelCPB_3DPattern pattern;
    StoreFullTable(pattern);
    CZurSMWMan link;
    BenchDialog dialog(pattern, link);
    dialog.Run([&](QWidget& window) {
        ChooseWidestZoom(dialog);
        QPoint place;
        if (!GrabDot(dialog, window, place)) {
            state.SkipWithError("no dot to drag");
            return;
        }
        int step = 0;
        for (auto _ : state) {
            ++step;
            SendMouse(window, QEvent::MouseMove, place + QPoint(step % 9, step % 7));
            QCoreApplication::processEvents();
        }
        SendMouse(window, QEvent::MouseButtonRelease, place);
    });
}
BENCHMARK(DragFrame)->Unit(benchmark::kMillisecond);

// A window with a picture of the planes that is made anew for each frame.
class PlanesWindow : public QWidget {
public:
    explicit PlanesWindow(std::function<void(QPainter&, const QRect&, int)> draw)
        : draw_(std::move(draw)) {
        resize(659, 583);
        image_ = QImage(size() * devicePixelRatioF(), QImage::Format_RGB32);
        image_.setDevicePixelRatio(devicePixelRatioF());
        show();
    }

    void Frame() {
        QPainter painter(&image_);
        for (int plane = 0; plane < 2; ++plane) {
            painter.fillRect(Place(plane), Qt::black);
            draw_(painter, Place(plane), plane);
        }
        painter.end();
        update(Place(0));
        update(Place(1));
        QCoreApplication::processEvents();
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        const qreal ratio = image_.devicePixelRatio();
        for (const QRect& part : event->region()) {
            painter.drawImage(part, image_, QRectF(part.topLeft() * ratio, part.size() * ratio));
        }
    }

private:
    static QRect Place(int plane) { return {407, 5 + 252 * plane, 247, 249}; }

    std::function<void(QPainter&, const QRect&, int)> draw_;
    QImage image_;
};

void RunFrames(benchmark::State& state, PlanesWindow& window) {
    QCoreApplication::processEvents();
    for (auto _ : state) {
        window.Frame();
    }
}

void EmptyPlanes(benchmark::State& state) {
    Application();
    PlanesWindow window([](QPainter&, const QRect&, int) {});
    RunFrames(state, window);
}
BENCHMARK(EmptyPlanes)->Unit(benchmark::kMillisecond);

struct Dot {
    QPoint place[2];
    int number;
};

// The dots of one ID where the editor shows them at the widest zoom.
std::vector<Dot> DotsOf(const C3DEventData& table, int id, const QRect& plane) {
    const C3DPosConverter converter = EditorLimits();
    std::vector<Dot> dots;
    for (int i = 0; i < table.CountEvents(-1); ++i) {
        const _tagEvent3D& event = table.EventAt(i);
        if (event.type != kEventPosition || event.id != id) {
            continue;
        }
        double x = 0;
        double y = 0;
        double z = 0;
        converter.SphericalToCartesian(event.distance, event.azimuth, event.elevation, x, y, z);
        const double scale = (plane.width() / 2.0 - 15) / 12750.0;
        const auto middle = QPointF(plane.width() / 2.0, plane.height() / 2.0);
        dots.push_back({{(middle + QPointF(x, -z) * scale).toPoint(),
                         (middle + QPointF(x, -y) * scale).toPoint()},
                        static_cast<int>(dots.size())});
    }
    return dots;
}

void PlainDrawing(benchmark::State& state) {
    Application();
    const C3DEventData table = FullTable();
    std::vector<Dot> dots[kSourceCount];
    for (int id = 0; id < kSourceCount; ++id) {
        dots[id] = DotsOf(table, id, QRect(0, 0, 247, 249));
    }
    const QFont font = [] {
        QFont made("Liberation Sans");
        made.setPixelSize(11);
        return made;
    }();
    const QFontMetrics metrics(font);
    PlanesWindow window([&](QPainter& painter, const QRect& place, int plane) {
        painter.setFont(font);
        for (int id = kSourceCount - 1; id >= 0; --id) {
            const QColor colour = QColor::fromHsv(id * 60, 255, 255);
            QPoint previous;
            for (const Dot& dot : dots[id]) {
                const QPoint at = place.topLeft() + dot.place[plane];
                painter.setPen(colour);
                if (dot.number != 0) {
                    painter.drawLine(previous, at);
                }
                previous = at;
                painter.setPen(Qt::black);
                painter.setBrush(colour);
                painter.drawEllipse(QRect(at - QPoint(3, 3), QSize(6, 6)));
                painter.setPen(colour);
                const QString number = QString::number(dot.number);
                painter.drawText(at - QPoint(metrics.horizontalAdvance(number) / 2, 3), number);
            }
        }
    });
    RunFrames(state, window);
}
BENCHMARK(PlainDrawing)->Unit(benchmark::kMillisecond);

}  // namespace
