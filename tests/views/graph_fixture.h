#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "event/event_record.h"
#include "platform/hooks.h"
#include "platform/window.h"
#include "res/resources.h"
#include "tests/support/recording_dc.h"
#include "views/graph.h"

/// A graph on two planes whose axes have other lengths across and up. Plane 0: crossing at (115,
/// 115), 100 pixels across, 99 up. Plane 1: crossing at (415, 120), 100 across, 104 up. The zoom
/// is 1000 mm, without rings.
class GraphTest : public testing::Test {
protected:
    using PointLists = std::vector<std::vector<tag3DGraphPoint>>;

    static void SetUpTestSuite() { AfxInitExtensionModule(OrbixResources()); }
    static void TearDownTestSuite() { AfxTermExtensionModule(OrbixResources()); }

    GraphTest() {
        SetView(0, 0, 0);
        C3DGraph::s_nIndexView = C3DGraph::s_nIndexLine = 1;
        graph.Init({0, 0, 231, 231}, {300, 0, 531, 241}, 1000.0, 0, nullptr, EditorLimits());
    }

    void SetView(int x, int y, int z) {
        graph.SetXReverse(nullptr, nullptr, x);
        graph.SetYReverse(nullptr, nullptr, y);
        graph.SetZReverse(nullptr, nullptr, z);
    }

    void Add(int id, int distance, int azimuth, int elevation = 0, int visible = 1) {
        graph.AddEvent({kEventPosition, 0, 0, static_cast<std::uint8_t>(id), 0,
                        static_cast<std::uint16_t>(distance), static_cast<std::int16_t>(azimuth),
                        static_cast<std::int16_t>(elevation), kNoUid, visible});
    }

    void SetZoomRow(std::size_t row) {
        const ZoomRow& zoom = ZOOM_TABLE.at(row);
        graph.SetZoom(nullptr, nullptr, zoom.zoom, static_cast<int>(zoom.ringCount), zoom.rings);
    }

    /// Numbers as text, a blank behind each: "1 2 3 ".
    static std::string Words(std::initializer_list<int> numbers) {
        std::string words;
        for (const int number : numbers) {
            words += std::to_string(number) + " ";
        }
        return words;
    }

    PointLists AllPoints() const {
        return {graph.Points(0), graph.Points(1), graph.Points(2), graph.Points(3)};
    }

    CWnd dialog;
    DrawingLog log;
    RecordingDC dc{log};
    C3DGraph graph;
};
