#include "tests/support/data.h"
#include "tests/views/graph_fixture.h"

namespace {

/// The lines that hold a text, or with `wanted` false the others.
DrawingLog With(const DrawingLog& log, const std::string& text, bool wanted = true) {
    DrawingLog lines;
    std::copy_if(log.begin(), log.end(), std::back_inserter(lines), [&](const std::string& line) {
        return (line.find(text) != std::string::npos) == wanted;
    });
    return lines;
}

/// What is to be drawn, one call a line.
DrawingLog Golden(const std::string& name) {
    DrawingLog lines;
    for (const auto& row : TestTable(name)) {
        lines.push_back(row.at(0));
    }
    return lines;
}

TEST_F(GraphTest, PaintsAPlaneFromTheGroundUp) {
    SetZoomRow(3);  // 6000 with rings 5000 and 2500.
    graph.DrawPlanes(&dc, 1);
    EXPECT_EQ(log, Golden("graph_plane.txt"));
    EXPECT_EQ(dc.GetBkColor(), 0xFFFFFFU) << "not put back";
    // The head follows the reversals.
    const int pictures[2][2][2] = {{{5004, 5012}, {5010, 5014}}, {{5002, 5006}, {5000, 5008}}};
    for (int place = 0; place < 8; ++place) {
        const int plane = place / 4, x = place / 2 % 2, vertical = place % 2;
        SetView(x, plane == 1 ? vertical : 0, plane == 0 ? vertical : 0);
        log.clear();
        RecordingDC fresh(log);
        graph.DrawPlanes(&fresh, plane);
        const int picture = pictures[plane][x][vertical];
        EXPECT_EQ(With(log, "select picture"),
                  (DrawingLog{"mem1 select picture " + std::to_string(picture),
                              "mem2 select picture " + std::to_string(picture + 1)}));
    }
}

TEST_F(GraphTest, LabelsStandAtTheEndsThatTheReversalsGiveThem) {
    SetZoomRow(7);  // 500 with a ring at 250; a text of four is 20 wide, every one 9 high.
    graph.DrawLabels(&dc, 0);
    SetView(1, 1, 0);
    graph.DrawLabels(&dc, 1);
    EXPECT_EQ(log, Golden("graph_labels.txt"));
}

TEST_F(GraphTest, LinesBreakAtHiddenDotsAndRunThroughTheCurrentOne) {
    for (const auto& [distance, azimuth, visible] :
         {std::tuple(500, 90, 1), std::tuple(500, -90, 1), std::tuple(100, 90, 0),
          std::tuple(1000, 90, 1), std::tuple(1050, 90, 1), std::tuple(1000, 0, 1),
          std::tuple(500, 90, 1)}) {
        Add(1, distance, azimuth, 0, visible);
    }
    graph.SetCurrent(nullptr, nullptr, 1, 1);
    graph.DrawPoints(&dc, 0, 1);
    const DrawingLog expected = Golden("graph_points.txt");
    EXPECT_EQ(log, expected);
    // Lines want exactly 1, numbers anything but 0.
    for (const auto& [line, number, missing] :
         {std::tuple(2, 2, "line"), std::tuple(1, 0, "text")}) {
        log.clear();
        graph.SetIndexLine(nullptr, nullptr, line);
        graph.SetIndexView(nullptr, nullptr, number);
        graph.DrawPoints(&dc, 0, 1);
        EXPECT_EQ(log, With(expected, missing, false));
    }
}

TEST_F(GraphTest, DrawsTheCurrentIdLastAndEveryIdOnce) {
    for (int id = 0; id < kSourceCount; ++id) {
        Add(id, 500, 90);
    }
    C3DGraph::s_nIndexView = 0;
    for (const auto& [currentId, colours] : {std::pair(-1, "FF0000 00FF00 FF7F00 00FFFF "),
                                             {2, "FF0000 FF7F00 00FFFF FF00FF "},
                                             {7, "FF0000 00FF00 FF7F00 00FFFF "}}) {
        graph.SetCurrent(nullptr, nullptr, currentId, 0);
        log.clear();
        RecordingDC fresh(log);
        graph.Draw(&dialog, &fresh);
        std::string dots;
        for (const std::string& line : With(log, "mem1 ellipse (162,112,169,119)")) {
            dots += line.substr(line.size() - 6) + " ";
        }
        EXPECT_EQ(dots, colours);
        EXPECT_EQ(log.front(), "mem1 select bitmap (0,0)");
        EXPECT_EQ(
            DrawingLog(log.end() - 3, log.end()),
            (DrawingLog{"dc blt (0,0,231,231) from mem1 (0,0) copy",
                        "dc blt (300,0,231,241) from mem1 (300,0) copy", "mem1 select nothing"}));
    }
    log.clear();
    dc.RefuseMemory();
    graph.Draw(&dialog, &dc);
    EXPECT_TRUE(log.empty());
}

TEST_F(GraphTest, AChangeOfViewRepaints) {
    graph.SetZoom(&dialog, &dc, 2000.0, 5, nullptr);  // Without a table there are no rings.
    EXPECT_FALSE(With(log, "\"2.00\"").empty());
    EXPECT_TRUE(With(log, "7F7F7F").empty());
    const double ring = 500.0;
    log.clear();
    graph.SetZoom(&dialog, &dc, 0.0, 1, &ring);  // A host's: as far out as pixels go.
    EXPECT_FALSE(With(log, "536870913").empty());
    for (const auto set : {&C3DGraph::SetXReverse, &C3DGraph::SetYReverse, &C3DGraph::SetZReverse,
                           &C3DGraph::SetIndexView, &C3DGraph::SetIndexLine}) {
        log.clear();
        (graph.*set)(&dialog, &dc, 1);
        EXPECT_FALSE(log.empty());
    }
}

}  // namespace
