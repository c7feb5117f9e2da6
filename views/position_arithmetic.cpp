#include "views/position_arithmetic.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr double kPerHalfTurn = 0.005555555555555556;
constexpr double kPi = 3.141592653589793;
constexpr double kPerPi = 0.3183098861837907;
constexpr double kThird = 0.3333333333333333;

/// Doubles beyond this are held before they become integers; far outside every grid.
constexpr double kWidest = 4611686018427387904.0;

std::int64_t TruncateWide(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int64_t>(std::clamp(value, -kWidest, kWidest));
}

double Held(double value, double low, double high) {
    if (value > high) {
        return high;
    }
    return value < low ? low : value;
}

}  // namespace

C3DPosConverter::~C3DPosConverter() = default;

void C3DPosConverter::SetCartesianRange(double low, double high) {
    m_dCartLow = low;
    m_dCartHigh = high;
}

void C3DPosConverter::SetSphericalRange(double distanceLow, double distanceHigh, double azimuthLow,
                                        double azimuthHigh, double elevationLow,
                                        double elevationHigh) {
    m_dDistLow = distanceLow;
    m_dDistHigh = distanceHigh;
    m_dAzimLow = azimuthLow;
    m_dAzimHigh = azimuthHigh;
    m_dElevLow = elevationLow;
    m_dElevHigh = elevationHigh;
}

int C3DPosConverter::SphericalToCartesian(double distance, double azimuth, double elevation,
                                          double& x, double& y, double& z) const {
    const double scale = m_dCartHigh / m_dDistHigh;
    const double turn = azimuth * kPerHalfTurn * kPi;
    const double fromZenith = (90.0 - elevation) * kPerHalfTurn * kPi;
    x = Held(std::sin(turn) * std::sin(fromZenith) * scale * distance, m_dCartLow, m_dCartHigh);
    y = Held(std::cos(fromZenith) * scale * distance, m_dCartLow, m_dCartHigh);
    z = Held(std::cos(turn) * std::sin(fromZenith) * scale * distance, m_dCartLow, m_dCartHigh);
    return 1;
}

int C3DPosConverter::CartesianToSpherical(double& x, double& y, double& z, double& distance,
                                          double& azimuth, double& elevation,
                                          int limitDistance) const {
    distance = std::sqrt(x * x + z * z + y * y) * (m_dDistHigh / m_dCartHigh);
    const double level = std::sqrt(x * x + z * z);
    elevation = level == 0.0 && y == 0.0 ? 0.0 : std::atan2(y, level) * 180.0 * kPerPi;
    azimuth = x == 0.0 && z == 0.0 ? 0.0 : std::atan2(x, z) * 180.0 * kPerPi;
    if (azimuth >= 180.0) {
        azimuth -= 360.0;
    }
    if (limitDistance == 1) {
        const double held = Held(distance, m_dDistLow, m_dDistHigh);
        if (held != distance) {
            distance = held;
            SphericalToCartesian(RoundHalfAway(distance), azimuth, elevation, x, y, z);
        }
    }
    azimuth = Held(azimuth, m_dAzimLow, m_dAzimHigh);
    elevation = Held(elevation, m_dElevLow, m_dElevHigh);
    return 1;
}

C3DPosConverter EditorLimits() {
    C3DPosConverter converter;
    converter.SetCartesianRange(-12750.0, 12750.0);
    converter.SetSphericalRange(0.0, 12750.0, -180.0, 177.0, -90.0, 90.0);
    return converter;
}

int RoundDistance(double distance) {
    const int whole = static_cast<std::uint16_t>(TruncateWide(distance));
    return (whole + 25) / 50 * 50;
}

int RoundAngle(double angle) {
    const int whole = static_cast<std::int16_t>(TruncateWide(angle));
    return (whole + (whole >= 0 ? 1 : -1)) / 3 * 3;
}

double TruncateAngle(double angle) {
    return std::trunc(angle * kThird) * 3.0;
}

int RoundHalfAway(double value) {
    return Truncate(value > 0.0 ? value + 0.5 : value - 0.5);
}

int Truncate(double value) {
    return static_cast<int>(std::clamp<std::int64_t>(TruncateWide(value), INT32_MIN, INT32_MAX));
}

CString MetresText(double millimetres) {
    // Written without the C library's formatter, whose decimal point follows the host's locale.
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(),
                                            millimetres * 0.001, std::chars_format::fixed, 2);
    return error == std::errc() ? CString(text.data(), end) : CString();
}
