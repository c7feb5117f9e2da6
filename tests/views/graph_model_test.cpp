#include "tests/views/graph_fixture.h"

namespace {

TEST_F(GraphTest, TakesPositionEventsOfFourIdsOnly) {
    Add(3, 1000, 90);
    Add(3, 500, 0, 90, 0);
    Add(4, 1000, 0);
    graph.AddEvent(TimeSigEventOf({}));
    EXPECT_EQ(AllPoints(), (PointLists{{}, {}, {}, {{1000, 0, 0, 1, 1000}, {0, 500, 0, 0, 500}}}));
}

TEST_F(GraphTest, ProjectsTowardZeroAndUnprojectsOnePixelOff) {
    struct Case {
        int xReverse, yReverse, zReverse, plane, h, v;
        POINT pixel;
        double backH, backV;  // What the pixel gives back.
    };
    const Case cases[] = {
        {0, 0, 0, 0, 0, 0, {115, 115}, 0, 1000 - 100 * 1000.0 / 99},
        {0, 0, 0, 0, 0, 995, {115, 16}, 0, 1000 - 1 * 1000.0 / 99},  // 16.495
        {1, 0, 0, 0, 500, 500, {65, 65}, 500, 1000 - 50 * 1000.0 / 99},
        {0, 0, 1, 0, 500, 500, {165, 164}, 500, 48 * 1000.0 / 99},
        {0, 1, 0, 0, 500, 500, {165, 65}, 500, 1000 - 50 * 1000.0 / 99},  // Y is plane 1's.
        {0, 0, 1, 1, -500, 500, {365, 68}, -500, 1000 - 53 * 1000.0 / 104},
        {0, 1, 0, 1, -500, 500, {365, 172}, -500, 51 * 1000.0 / 104},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(&each - cases);
        SetView(each.xReverse, each.yReverse, each.zReverse);
        const POINT pixel = graph.Project(each.plane, each.h, each.v);
        EXPECT_EQ(pixel, each.pixel) << pixel.x << "," << pixel.y;
        double h = 0;
        double v = 0;
        graph.Unproject(each.plane, pixel.x, pixel.y, h, v);
        EXPECT_DOUBLE_EQ(h, each.backH);
        EXPECT_DOUBLE_EQ(v, each.backV);
    }
    C3DGraph blank;  // Neither a place nor a zoom yet.
    EXPECT_EQ(blank.Project(0, 1000, -1000), (POINT{-(1 << 29), -(1 << 29)}));
    EXPECT_EQ(blank.Project(1, 0, 0), (POINT{0, 0}));
    blank.Draw(&dialog, &dc);
    blank.Draw(nullptr, &dc);
    blank.Draw(&dialog, nullptr);
}

TEST_F(GraphTest, TheEllipseReachesThreePixelsFarther) {
    struct Case {
        int x, y;
        bool inside;
    };
    // The leftmost column of the grown circle touches in the middle rows only.
    for (const Case& each : std::vector<Case>{{12, 116, true},
                                              {11, 116, false},
                                              {12, 100, false},
                                              {219, 115, true},
                                              {220, 115, false},
                                              {116, 12, true},
                                              {116, 220, false},
                                              {42, 42, true},
                                              {41, 42, false},
                                              {12, 12, false}}) {
        EXPECT_EQ(C3DGraph::InEllipse({15, 15, 217, 217}, each.x, each.y), each.inside) << each.x;
    }
}

TEST_F(GraphTest, TheCurrentDotWinsThenItsIdThenTheLowestIdAndIndex) {
    for (const int id : {3, 3, 1, 0, 0}) {
        Add(id, 500, 90);
    }
    Add(2, 1050, 90);        // Beyond the zoom.
    Add(2, 500, -90, 0, 0);  // Hidden.
    Add(2, 1000, 0);         // On the edge of the zoom, at (115, 16).
    struct Case {
        int currentId, currentIndex, x, y;
        int plane, id, index;  // -1 where nothing is hit.
    };
    for (const Case& each : std::vector<Case>{{-1, -1, 165, 115, 0, 0, 0},
                                              {3, 1, 165, 115, 0, 3, 1},
                                              {3, -1, 165, 115, 0, 3, 0},
                                              {3, 9, 165, 115, 0, 3, 0},  // Stale.
                                              {2, 1, 165, 115, 0, 0, 0},
                                              {9, 0, 165, 115, 0, 0, 0},
                                              {1, 0, 465, 120, 1, 1, 0},
                                              {2, 1, 65, 115, 0, -1, -1},
                                              {2, 0, 220, 115, 0, -1, -1},
                                              {-1, -1, 115, 16, 0, 2, 2},
                                              {-1, -1, 162, 112, 0, 0, 0},  // 7 x 7 pixels.
                                              {-1, -1, 168, 118, 0, 0, 0},
                                              {-1, -1, 169, 115, 0, -1, -1},
                                              {-1, -1, 165, 119, 0, -1, -1},
                                              {-1, -1, 161, 115, 0, -1, -1}}) {
        SCOPED_TRACE(testing::Message() << each.currentId << " at " << each.x << "," << each.y);
        graph.SetCurrent(nullptr, nullptr, each.currentId, each.currentIndex);
        int plane = -1, id = -1, index = -1;
        ASSERT_EQ(graph.FindPoint(each.x, each.y, plane, id, index), each.id >= 0);
        if (each.id >= 0) {
            EXPECT_EQ(std::tuple(plane, id, index), std::tuple(each.plane, each.id, each.index));
        }
    }
}

TEST_F(GraphTest, ClearingTheCurrentIdKeepsTheIdAndDropsTheIndex) {
    Add(1, 500, 0);
    Add(2, 500, 0);
    graph.SetCurrent(nullptr, nullptr, 2, 0);
    graph.ClearPoints(1);
    EXPECT_EQ(graph.CurrentIndex(), 0);
    graph.ClearPoints(2);
    EXPECT_EQ(std::pair(graph.CurrentId(), graph.CurrentIndex()), std::pair(2, -1));
    EXPECT_EQ(AllPoints(), PointLists(4));
    Add(0, 500, 0);
    graph.ClearPoints(-1);
    EXPECT_EQ(AllPoints(), PointLists(4));
}

TEST_F(GraphTest, DescribesTheDotsThatAPlaneShows) {
    Add(0, 1500, 0);
    Add(2, 500, -90);
    Add(2, 500, 0, 90, 0);
    Add(2, 250, 0, 90);
    graph.SetCurrent(nullptr, nullptr, 2, 2);
    const GraphPlane behind = graph.DescribePlane(1);
    ASSERT_EQ(behind.dots.size(), 2U);
    EXPECT_EQ(behind.dots[0].text, "ID 2, dot 0, X -0.50 metres, Y 0.00 metres");
    EXPECT_EQ(behind.dots[0].rect, (RECT{362, 117, 369, 124}));
    EXPECT_FALSE(behind.dots[0].isCurrent);
    EXPECT_EQ(behind.dots[1].text, "ID 2, dot 2, X 0.00 metres, Y 0.25 metres");
    EXPECT_TRUE(behind.dots[1].isCurrent);
    EXPECT_EQ(graph.DescribePlane(0).dots[1].text, "ID 2, dot 2, X 0.00 metres, Z 0.00 metres");
}

}  // namespace
