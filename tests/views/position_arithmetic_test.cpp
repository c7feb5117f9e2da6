#include "views/position_arithmetic.h"

#include <cmath>
#include <limits>

#include "tests/views/table.h"

namespace {

TEST(Rounding, EachRuleHasItsOwnHalves) {
    ExpectTable("rounding.txt", [](std::istream& row) {
        double value = 0;
        row >> value;
        std::ostringstream result;
        result << RoundDistance(value) << " " << RoundAngle(value) << " "
               << TruncateAngle(value) + 0.0 << " " << RoundHalfAway(value) << " ";
        return result.str();
    });
    for (const double odd : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(RoundDistance(odd), 0);
        EXPECT_EQ(RoundAngle(odd), 0);
    }
    EXPECT_EQ(RoundHalfAway(1e300), 2147483647);
    EXPECT_EQ(MetresText(12750.0) + MetresText(-50.0) + MetresText(0.0), "12.75-0.050.00");
}

TEST(PosConverter, CartesianToSphericalHoldsWhatLiesBeyond) {
    ExpectTable("spherical.txt", [](std::istream& row) {
        double x = 0, y = 0, z = 0, distance = 0, azimuth = 0, elevation = 0;
        int limit = 0;
        row >> x >> y >> z >> limit;
        EXPECT_EQ(EditorLimits().CartesianToSpherical(x, y, z, distance, azimuth, elevation, limit),
                  1);
        std::ostringstream result;
        for (const double value : {distance, azimuth, elevation, x, y, z}) {
            result << std::round(value * 1000) / 1000 << " ";
        }
        return result.str();
    });
}

TEST(PosConverter, SphericalToCartesianHoldsEachAxisAndScales) {
    C3DPosConverter converter = EditorLimits();
    double x = 0, y = 0, z = 0;
    EXPECT_EQ(converter.SphericalToCartesian(20000, -45, 0, x, y, z), 1);
    EXPECT_EQ(std::pair(x, z), std::pair(-12750.0, 12750.0));
    converter.SetCartesianRange(-25500.0, 25500.0);  // Two Cartesian units a millimetre.
    converter.SphericalToCartesian(1000, 0, 90, x, y, z);
    EXPECT_DOUBLE_EQ(y, 2000.0);
    double distance = 0, azimuth = 0, elevation = 0;
    converter.CartesianToSpherical(x, y, z, distance, azimuth, elevation, 1);
    EXPECT_DOUBLE_EQ(distance, 1000.0);
}

}  // namespace
