#include "tests/views/graph_fixture.h"

namespace {

/// A table behind the graph, as the editor has one: a move comes back to it and rebuilds all
/// points. On plane 0 the dots of ID 0 stand at (165, 115) and (115, 66), on plane 1 at (465, 120)
/// and (415, 120).
class GraphMouseTest : public GraphTest {
protected:
    struct Move {
        int id, index, distance, azimuth, elevation;
        bool operator==(const Move&) const = default;
    };

    GraphMouseTest() {
        Hooks().keyState = [this](int key) {
            return static_cast<short>(key == VK_LBUTTON && buttonDown ? -1 : 0);
        };
        graph.SetCallbacks(
            {[this](int id, int index) { selected.emplace_back(id, index); },
             [this](int id, int index, const _tagEvent3D& event) {
                 EXPECT_FALSE(graph.IsDragging());
                 moves.push_back({id, index, event.distance, event.azimuth, event.elevation});
                 Rebuild();
             }});
        Rebuild();
        before = AllPoints();
    }

    void Rebuild() {
        for (int id = 0; id < C3DGraph::kIdCount; ++id) {
            graph.ClearPoints(id);
        }
        Add(0, 500, 90);
        Add(0, 500, 0);
    }

    void Press(int x, int y) { graph.OnMouseDown(&dialog, x, y); }
    void MoveTo(int x, int y) {
        log.clear();
        graph.OnMouseDrag(&dialog, &dc, x, y);
    }
    void Release(int x, int y) { graph.OnMouseUp(&dialog, x, y); }

    HooksScope hooks;
    bool buttonDown = true;
    std::vector<std::pair<int, int>> selected;
    std::vector<Move> moves;
    PointLists before;
};

TEST_F(GraphMouseTest, AClickOnlySelects) {
    Press(10, 10);
    MoveTo(60, 60);
    EXPECT_TRUE(selected.empty());
    Press(116, 66);
    Release(116, 66);
    MoveTo(150, 150);  // The hand is off the dot.
    EXPECT_EQ(selected, (std::vector<std::pair<int, int>>{{0, 1}}));
    EXPECT_EQ(std::pair(graph.CurrentId(), graph.CurrentIndex()), std::pair(0, 1));
    Press(116, 66);
    buttonDown = false;  // It went up elsewhere.
    MoveTo(150, 150);
    buttonDown = true;
    MoveTo(150, 150);
    EXPECT_FALSE(graph.IsDragging());
    EXPECT_EQ(AllPoints(), before);
    EXPECT_TRUE(moves.empty());
}

TEST_F(GraphMouseTest, ADragMovesTheDotAndMakesOneMove) {
    Press(165, 115);
    MoveTo(165, 65);  // The very first move counts.
    EXPECT_TRUE(graph.IsDragging());
    EXPECT_FALSE(log.empty());
    EXPECT_EQ(graph.Points(0)[0], (tag3DGraphPoint{500, 0, 494, 1, 700}));
    MoveTo(125, 105);
    EXPECT_EQ(graph.Points(0)[0], (tag3DGraphPoint{100, 0, 90, 1, 150}));
    EXPECT_TRUE(moves.empty());
    Release(65, 114);  // The pixel of the release counts too; one above the axis is v = 0.
    MoveTo(70, 70);
    Release(70, 70);
    EXPECT_EQ(moves, (std::vector<Move>{{0, 0, 500, -90, 0}}));
}

TEST_F(GraphMouseTest, EndsOnTheGridsWhereverItEnds) {
    SetZoomRow(0);  // 127.5 mm a pixel, toward zero.
    for (const auto& [x, y, pointX, distance, azimuth] :
         {std::tuple(115, 211, 0, 12500, -180),    // Behind, on the axis: never 180.
          std::tuple(116, 211, 127, 12500, 177),   // 179.4 degrees.
          std::tuple(42, 42, -9307, 12750, -45),   // Beyond the reach: back along the ray.
          std::tuple(143, 65, 3570, 7250, 30)}) {  // 29.5 degrees: up, not off.
        moves.clear();
        const POINT dot = graph.Project(0, 500, 0);
        Press(dot.x, dot.y);
        MoveTo(x, y);
        EXPECT_EQ(graph.Points(0)[0].x, pointX);
        Release(x, y);
        EXPECT_EQ(moves, (std::vector<Move>{{0, 0, distance, azimuth, 0}}));
    }
}

TEST_F(GraphMouseTest, StaysWhereTheMouseGoesTooFar) {
    Add(1, 900, 0, 90);  // y = 900.
    struct Case {
        POINT press, taken;
        tag3DGraphPoint point;
        std::vector<POINT> refused;
        Move move;
    };
    for (const Case& each : std::vector<Case>{
             // 500 across is 1029 away, beyond the zoom of 1000.
             {{115, 115}, {145, 114}, {300, 900, 0, 1, 950}, {{165, 114}}, {1, 0, 950, 90, 72}},
             // Out of the circle, on the other plane, three pixels beyond the edge.
             {{465, 120},
              {465, 100},
              {500, 182, 0, 1, 550},
              {{320, 20}, {165, 115}, {521, 116}},
              {0, 0, 550, 90, 21}}}) {
        Press(each.press.x, each.press.y);
        MoveTo(each.taken.x, each.taken.y);
        for (const POINT& pixel : each.refused) {
            MoveTo(pixel.x, pixel.y);
            EXPECT_TRUE(log.empty());
            EXPECT_EQ(graph.Points(each.move.id)[0], each.point);
        }
        Release(each.refused[0].x, each.refused[0].y);  // No cancellation.
        EXPECT_EQ(moves.back(), each.move);
    }
}

TEST_F(GraphMouseTest, GivingUpPutsTheDotBack) {
    for (const auto giveUp : {&C3DGraph::OnCaptureLost, &C3DGraph::CancelDrag}) {
        Press(165, 115);
        MoveTo(125, 105);
        log.clear();
        (graph.*giveUp)(&dialog, &dc);
        EXPECT_FALSE(log.empty());
        EXPECT_FALSE(graph.IsDragging());
        EXPECT_EQ(AllPoints(), before);
        Release(125, 105);
        MoveTo(130, 130);
        EXPECT_EQ(AllPoints(), before);
        (graph.*giveUp)(&dialog, &dc);  // Nothing is left to give up.
        EXPECT_TRUE(log.empty());
    }
    EXPECT_TRUE(moves.empty());
}

TEST_F(GraphMouseTest, ADotThatIsClearedAwayIsLetGo) {
    for (const bool dragging : {false, true}) {
        Press(165, 115);
        if (dragging) {
            MoveTo(125, 105);
        }
        graph.ClearPoints(3);  // Another ID's points.
        EXPECT_EQ(graph.IsDragging(), dragging);
        Rebuild();
        EXPECT_FALSE(graph.IsDragging());
        MoveTo(140, 90);
        Release(140, 90);
        EXPECT_EQ(AllPoints(), before);
        EXPECT_TRUE(moves.empty());
    }
    graph.SetCallbacks({[this](int, int) { graph.ClearPoints(-1); }, {}});
    Press(165, 115);  // Selecting took the points away.
    MoveTo(140, 90);
    EXPECT_FALSE(graph.IsDragging());
}

}  // namespace
