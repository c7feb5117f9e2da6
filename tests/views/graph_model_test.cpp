#include <array>

#include "platform/controls.h"
#include "tests/views/graph_fixture.h"
#include "tests/views/table.h"

namespace {

// Taken before any test sets them.
const std::array kReversedAtFirst = {C3DGraph::s_nXReverse, C3DGraph::s_nYReverse,
                                     C3DGraph::s_nZReverse};

TEST_F(GraphTest, TakesPositionEventsOfFourIdsOnly) {
    Add(3, 1000, 90);
    Add(3, 500, 0, 90, 0);
    Add(4, 1000, 0);
    graph.AddEvent(TimeSigEventOf({}));
    EXPECT_EQ(AllPoints(), (PointLists{{}, {}, {}, {{1000, 0, 0, 1, 1000}, {0, 500, 0, 0, 500}}}));
}

TEST_F(GraphTest, ProjectsTowardZeroAndUnprojectsOnePixelOff) {
    ExpectTable("projection.txt", [this](std::istream& row) {
        int xReverse = 0, yReverse = 0, zReverse = 0, plane = 0, h = 0, v = 0;
        row >> xReverse >> yReverse >> zReverse >> plane >> h >> v;
        SetView(xReverse, yReverse, zReverse);
        const POINT pixel = graph.Project(plane, h, v);
        double backH = 0, backV = 0;
        graph.Unproject(plane, pixel.x, pixel.y, backH, backV);
        std::ostringstream result;
        result << pixel.x << " " << pixel.y << " " << backH << " " << backV << " ";
        return result.str();
    });
    EXPECT_EQ(kReversedAtFirst, (std::array{0, 0, 0}));
    C3DGraph blank;  // Neither a place nor a zoom yet.
    EXPECT_EQ(blank.Project(0, 1000, -1000), (POINT{-(1 << 29), -(1 << 29)}));
    EXPECT_EQ(blank.Project(1, 0, 0), (POINT{0, 0}));
    blank.Draw(&dialog, &dc);
    blank.Draw(nullptr, &dc);
    blank.Draw(&dialog, nullptr);
}

TEST_F(GraphTest, TheEllipseReachesThreePixelsFarther) {
    ExpectTable("ellipse.txt", [](std::istream& row) {
        int x = 0, y = 0;
        row >> x >> y;
        return Words({C3DGraph::InEllipse({15, 15, 217, 217}, x, y)});
    });
}

TEST_F(GraphTest, TheCurrentDotWinsThenItsIdThenTheLowestIdAndIndex) {
    for (const int id : {3, 3, 1, 0, 0}) {
        Add(id, 500, 90);
    }
    Add(2, 1050, 90);        // Beyond the zoom.
    Add(2, 500, -90, 0, 0);  // Hidden.
    Add(2, 1000, 0);         // On the edge of the zoom.
    ExpectTable("hits.txt", [this](std::istream& row) {
        int currentId = -1, currentIndex = -1, x = 0, y = 0, plane = -1, id = -1, index = -1;
        row >> currentId >> currentIndex >> x >> y;
        graph.SetCurrent(nullptr, nullptr, currentId, currentIndex);
        return graph.FindPoint(x, y, plane, id, index) ? Words({plane, id, index}) : "";
    });
}

TEST_F(GraphTest, ClearingTheCurrentIdKeepsTheIdAndDropsTheIndex) {
    Add(1, 500, 0);
    Add(2, 500, 0);
    graph.SetCurrent(nullptr, nullptr, 2, 0);
    graph.ClearPoints(1);
    EXPECT_EQ(graph.CurrentIndex(), 0);
    graph.ClearPoints(2);
    EXPECT_EQ(Words({graph.CurrentId(), graph.CurrentIndex()}), "2 -1 ");
    EXPECT_EQ(AllPoints(), PointLists(4));
}

TEST_F(GraphTest, DescribesTheDotsThatAPlaneShows) {
    Add(0, 1500, 0);
    Add(2, 500, -90);
    Add(2, 500, 0, 90, 0);
    Add(2, 250, 0, 90);
    graph.SetCurrent(nullptr, nullptr, 2, 2);
    std::string words;
    for (const VirtualItem& dot : graph.DescribeDots(1)) {
        words += dot.text + (dot.isCurrent ? ", current" : "") + "; ";
    }
    EXPECT_EQ(words,
              "ID 2, dot 0, X -0.50 metres, Y 0.00 metres; "
              "ID 2, dot 2, X 0.00 metres, Y 0.25 metres, current; ");
}

}  // namespace
