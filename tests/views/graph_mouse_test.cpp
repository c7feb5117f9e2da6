#include <functional>
#include <map>

#include "tests/views/graph_fixture.h"
#include "tests/views/table.h"

namespace {

/// A table behind the graph, as the editor has one: a move comes back to it and rebuilds all
/// points. On plane 0 the dots of ID 0 stand at (165, 115) and (115, 66), on plane 1 at (465, 120)
/// and (415, 120); that of ID 1 is 900 mm above the middle.
class GraphMouseTest : public GraphTest {
protected:
    GraphMouseTest() {
        Hooks().keyState = [this](int key) {
            return static_cast<short>(key == VK_LBUTTON && buttonDown ? -1 : 0);
        };
        graph.SetCallbacks(
            {[this](int id, int index) {
                 Tell("select", {id, index});
             },
             [this](int id, int index, const _tagEvent3D& event) {
                 EXPECT_FALSE(graph.IsDragging());
                 Tell("move", {id, index, event.distance, event.azimuth, event.elevation});
                 Rebuild();
             }});
        Rebuild();
    }

    void Rebuild() {
        for (int id = 0; id < kSourceCount; ++id) {
            graph.ClearPoints(id);
        }
        Add(0, 500, 90);
        Add(0, 500, 0);
        Add(1, 900, 0, 90);
    }

    void Tell(const std::string& what, std::initializer_list<int> numbers) {
        told += what + " " + Words(numbers);
        told.back() = ';';
        told += " ";
    }

    HooksScope hooks;
    bool buttonDown = true;
    std::string told;
    /// By the letters of drags.txt, which says what they mean.
    const std::map<char, std::function<void(int x, int y)>> actions{
        {'p', [this](int x, int y) { graph.OnMouseDown(&dialog, x, y); }},
        {'m', [this](int x, int y) { graph.OnMouseDrag(&dialog, &dc, x, y); }},
        {'r', [this](int x, int y) { graph.OnMouseUp(&dialog, x, y); }},
        {'u', [this](int, int) { buttonDown = false; }},
        {'d', [this](int, int) { buttonDown = true; }},
        {'c', [this](int, int) { graph.CancelDrag(&dialog, &dc); }},
        {'l', [this](int, int) { graph.OnCaptureLost(&dialog, &dc); }},
        {'o', [this](int, int) { graph.ClearPoints(3); }},
        {'b', [this](int, int) { Rebuild(); }},
        {'z', [this](int, int) { SetZoomRow(0); }}};
};

// Whatever happens, the points are the table's again at the end.
TEST_F(GraphMouseTest, OneDragIsOneMoveAndAllElseChangesNothing) {
    const PointLists before = AllPoints();
    ExpectTable("drags.txt", [&](std::istream& row) {
        told.clear();
        for (char action = 0; row >> action;) {
            int x = 0, y = 0;
            if (action == 'p' || action == 'm' || action == 'r') {
                row >> x >> y;
            }
            log.clear();
            actions.at(action)(x, y);
            if (!log.empty()) {
                const auto index = static_cast<std::size_t>(graph.CurrentIndex());
                const tag3DGraphPoint& held = graph.Points(graph.CurrentId()).at(index);
                Tell(graph.IsDragging() ? "dot" : "back", {held.x, held.y, held.z, held.distance});
            }
        }
        EXPECT_FALSE(graph.IsDragging());
        EXPECT_EQ(AllPoints(), before);
        return told;
    });
    graph.SetCallbacks({[this](int, int) { graph.ClearPoints(-1); }, {}});
    graph.OnMouseDown(&dialog, 118, 115);  // Selecting took the points away.
    graph.OnMouseDrag(&dialog, &dc, 140, 90);
    EXPECT_FALSE(graph.IsDragging());
}

}  // namespace
