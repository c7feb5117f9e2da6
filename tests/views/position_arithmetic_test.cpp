#include "views/position_arithmetic.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace {

C3DPosConverter EditorLimits() {
    C3DPosConverter converter;
    converter.SetCartesianRange(-12750.0, 12750.0);
    converter.SetSphericalRange(0.0, 12750.0, -180.0, 177.0, -90.0, 90.0);
    return converter;
}

TEST(Rounding, EachRuleHasItsOwnHalves) {
    struct Case {
        double value;
        int distance, angle;
        double truncated;
        int halfAway;
    };
    const Case cases[] = {{0.0, 0, 0, 0.0, 0},
                          {1.9, 0, 0, 0.0, 2},
                          {2.0, 0, 3, 0.0, 2},
                          {2.9, 0, 3, 0.0, 3},
                          {5.9, 0, 6, 3.0, 6},
                          {6.0, 0, 6, 6.0, 6},
                          {24.9, 0, 24, 24.0, 25},
                          {25.0, 50, 24, 24.0, 25},
                          {0.5, 0, 0, 0.0, 1},
                          {-0.5, 0, 0, 0.0, -1},
                          {-1.0, 65550, 0, 0.0, -1},
                          {-2.9, 65550, -3, 0.0, -3},
                          {-6.0, 65550, -6, -6.0, -6},
                          {12724.9, 12700, 12723, 12723.0, 12725},
                          {12725.0, 12750, 12726, 12723.0, 12725},
                          {12749.9, 12750, 12750, 12747.0, 12750},
                          {65611.0, 100, 75, 65610.0, 65611}};  // The last: only 16 bits count.
    for (const Case& each : cases) {
        SCOPED_TRACE(each.value);
        EXPECT_EQ(RoundDistance(each.value), each.distance);
        EXPECT_EQ(RoundAngle(each.value), each.angle);
        EXPECT_EQ(TruncateAngle(each.value), each.truncated);
        EXPECT_EQ(RoundHalfAway(each.value), each.halfAway);
    }
    for (const double odd : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(RoundDistance(odd), 0);
        EXPECT_EQ(RoundAngle(odd), 0);
    }
    EXPECT_EQ(RoundHalfAway(1e300), 2147483647);
    EXPECT_EQ(MetresText(12750.0) + MetresText(-50.0) + MetresText(0.0), "12.75-0.050.00");
}

TEST(PosConverter, CartesianToSphericalHoldsWhatLiesBeyond) {
    struct Case {
        std::array<double, 3> point;
        int limit;
        std::array<double, 3> position;
        std::array<double, 3> after;  // The point, drawn back along its ray where it lay too far.
    };
    const Case cases[] = {
        {{0, 0, 0}, 1, {0, 0, 0}, {0, 0, 0}},
        {{0, 5000, 0}, 1, {5000, 0, 90}, {0, 5000, 0}},
        {{0, -5000, 0}, 1, {5000, 0, -90}, {0, -5000, 0}},
        {{0, 0, -1000}, 1, {1000, -180, 0}, {0, 0, -1000}},
        {{1000, 0, 0}, 1, {1000, 90, 0}, {1000, 0, 0}},
        {{10, 0, -1000}, 1, {1000.05, 177, 0}, {10, 0, -1000}},  // Held, not turned round.
        {{-10, 0, -1000}, 1, {1000.05, -179.427, 0}, {-10, 0, -1000}},
        {{12750, 12750, 12750}, 0, {22083.648, 45, 35.264}, {12750, 12750, 12750}},
        {{12750, 12750, 12750}, 1, {12750, 45, 35.264}, {7361.216, 7361.216, 7361.216}},
        // By the azimuth before it is held; at 177 the x would be 667.
        {{150, 0, -20000}, 1, {12750, 177, 0}, {95.622, 0, -12749.641}}};
    const C3DPosConverter converter = EditorLimits();
    for (const Case& each : cases) {
        auto [x, y, z] = each.point;
        std::array<double, 3> position{};
        EXPECT_EQ(converter.CartesianToSpherical(x, y, z, position[0], position[1], position[2],
                                                 each.limit),
                  1);
        const std::array<double, 3> after{x, y, z};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(position[axis], each.position[axis], 0.001) << each.point[0] << " " << axis;
            EXPECT_NEAR(after[axis], each.after[axis], 0.001) << each.point[0] << " " << axis;
        }
    }
}

TEST(PosConverter, SphericalToCartesianHoldsEachAxisAndScales) {
    C3DPosConverter converter = EditorLimits();
    double x = 0, y = 0, z = 0;
    EXPECT_EQ(converter.SphericalToCartesian(20000, -45, 0, x, y, z), 1);
    EXPECT_EQ(x, -12750.0);
    EXPECT_EQ(z, 12750.0);
    converter.SetCartesianRange(-25500.0, 25500.0);  // Two Cartesian units a millimetre.
    converter.SphericalToCartesian(1000, 0, 90, x, y, z);
    EXPECT_DOUBLE_EQ(y, 2000.0);
    double distance = 0, azimuth = 0, elevation = 0;
    converter.CartesianToSpherical(x, y, z, distance, azimuth, elevation, 1);
    EXPECT_DOUBLE_EQ(distance, 1000.0);
}

}  // namespace
