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

TEST_F(GraphTest, PaintsAPlaneFromTheGroundUp) {
    SetZoomRow(3);  // 6000 with rings 5000 and 2500.
    graph.DrawPlanes(&dc, 1);
    EXPECT_EQ(log, (DrawingLog{"dc fill (300,0,531,241) 000000",
                               "dc ellipse (315,15,517,217) pen solid FFFFFF brush 000000",
                               "dc ellipse (331,33,499,207) pen dot 7F7F7F on 000000 brush 000000",
                               "dc ellipse (373,76,457,164) pen dot 7F7F7F on 000000 brush 000000",
                               "dc line (315,116,517,116) pen dot FFFFFF on 000000",
                               "dc line (416,15,416,217) pen dot FFFFFF on 000000",
                               "mem1 select picture 5002", "mem2 select picture 5003",
                               "mem1 blt (0,0,32,32) from mem2 (0,0) and",
                               "dc blt (400,100,32,32) from mem1 (0,0) copy", "mem2 select nothing",
                               "mem1 select nothing"}));
    EXPECT_EQ(dc.GetBkColor(), 0xFFFFFFU) << "not put back";
}

TEST_F(GraphTest, TheHeadFollowsTheReversals) {
    const int pictures[2][2][2] = {{{5004, 5012}, {5010, 5014}}, {{5002, 5006}, {5000, 5008}}};
    for (int place = 0; place < 8; ++place) {
        const int plane = place / 4, x = place / 2 % 2, vertical = place % 2;
        SetView(x, plane == 1 ? vertical : 0, plane == 0 ? vertical : 0);
        log.clear();
        graph.DrawPlanes(&dc, plane);
        const DrawingLog selected = With(log, "select picture");
        const int picture = pictures[plane][x][vertical];
        ASSERT_EQ(selected.size(), 2U);
        EXPECT_EQ(With(selected, std::to_string(picture)).size(), 1U) << selected[0];
        EXPECT_EQ(With(selected, std::to_string(picture + 1)).size(), 1U) << selected[1];
    }
}

TEST_F(GraphTest, LabelsStandAtTheEndsThatTheReversalsGiveThem) {
    SetZoomRow(7);  // 500 with a ring at 250; a text of four is 20 wide, every one 9 high.
    graph.DrawLabels(&dc, 0);
    SetView(1, 1, 0);
    graph.DrawLabels(&dc, 1);
    EXPECT_EQ(
        log,
        (DrawingLog{
            "dc text (218,111) \"X\" FFFFFF font 8", "dc text (206,119) \"0.50\" FFFFFF font 8",
            "dc text (2,2) \"X:Z\" FFFFFF font 8", "dc text (113,4) \"Z\" FFFFFF font 8",
            "dc text (120,4) \"0.50\" FFFFFF font 8", "dc text (155,117) \"0.25\" 7F7F7F font 8",
            "dc text (307,116) \"X\" FFFFFF font 8", "dc text (304,124) \"0.50\" FFFFFF font 8",
            "dc text (302,2) \"X:Y\" FFFFFF font 8", "dc text (413,227) \"Y\" FFFFFF font 8",
            "dc text (420,227) \"0.50\" FFFFFF font 8",
            "dc text (355,122) \"0.25\" 7F7F7F font 8"}));
}

TEST_F(GraphTest, LinesBreakAtHiddenDotsAndRunThroughTheCurrentOne) {
    for (const auto& [distance, azimuth] : {std::pair(500, 90), std::pair(500, -90)}) {
        Add(1, distance, azimuth);
    }
    Add(1, 100, 90, 0, 0);
    for (const auto& [distance, azimuth] :
         {std::pair(1000, 90), std::pair(1050, 90), std::pair(1000, 0), std::pair(500, 90)}) {
        Add(1, distance, azimuth);
    }
    graph.SetCurrent(nullptr, nullptr, 1, 1);
    graph.DrawPoints(&dc, 0, 1);
    const DrawingLog expected{"dc ellipse (162,112,169,119) pen solid 000000 brush FF7F00",
                              "dc text (163,103) \"0\" FF7F00 font 8",
                              "dc line (165,115,65,115) pen solid FF7F00",
                              "dc ellipse (212,112,219,119) pen solid 000000 brush FF7F00",
                              "dc text (213,103) \"3\" FF7F00 font 8",
                              "dc ellipse (112,13,119,20) pen solid 000000 brush FF7F00",
                              "dc text (113,4) \"5\" FF7F00 font 8",
                              "dc line (115,16,165,115) pen solid FF7F00",
                              "dc ellipse (162,112,169,119) pen solid 000000 brush FF7F00",
                              "dc text (163,103) \"6\" FF7F00 font 8",
                              "dc ellipse (62,112,69,119) pen solid 000000 brush FF00FF",
                              "dc text (63,103) \"1\" FF00FF font 8"};
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
    for (int id = 0; id < C3DGraph::kIdCount; ++id) {
        Add(id, 500, 90);
    }
    C3DGraph::s_nIndexView = 0;
    const std::pair<int, std::vector<std::string>> cases[] = {
        {-1, {"FF0000", "00FF00", "FF7F00", "00FFFF"}},
        {2, {"FF0000", "FF7F00", "00FFFF", "FF00FF"}},
        {7, {"FF0000", "00FF00", "FF7F00", "00FFFF"}}};
    for (const auto& [currentId, colours] : cases) {
        graph.SetCurrent(nullptr, nullptr, currentId, 0);
        log.clear();
        RecordingDC fresh(log);
        graph.Draw(&dialog, &fresh);
        DrawingLog dots;
        for (const std::string& colour : colours) {
            dots.push_back("mem1 ellipse (162,112,169,119) pen solid 000000 brush " + colour);
        }
        EXPECT_EQ(With(log, "ellipse (162,112,169,119)"), dots);
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
    for (const auto set : {&C3DGraph::SetXReverse, &C3DGraph::SetYReverse, &C3DGraph::SetZReverse,
                           &C3DGraph::SetIndexView, &C3DGraph::SetIndexLine}) {
        log.clear();
        (graph.*set)(&dialog, &dc, 1);
        EXPECT_FALSE(log.empty());
    }
}

}  // namespace
