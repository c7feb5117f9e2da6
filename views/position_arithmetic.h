#pragma once

#include <cstdint>

#include "platform/types.h"
#include "sequence/api.h"

/// Positions in their two forms and every rounding between them.
///
/// Spherical: distance in millimetres (0 to 12750 on a grid of 50), azimuth and elevation in
/// degrees (-180 to 177 and -90 to 90, on a grid of 3). Cartesian: x, y, z in millimetres (-12750
/// to 12750 on a grid of 50). Azimuth 0, elevation 0 is straight ahead along +Z, azimuth 90 is
/// +X (right), elevation 90 is +Y (up).
///
/// All arithmetic is on doubles in the order written; the constants stand literally, because
/// another value of the same ratio would move points that are truncated afterwards.

/// The limits of a position and the two conversions under them. Value type; any thread.
class ORBIX_API C3DPosConverter {
public:
    C3DPosConverter() = default;
    C3DPosConverter(const C3DPosConverter&) = default;
    C3DPosConverter& operator=(const C3DPosConverter&) = default;
    virtual ~C3DPosConverter();

    void SetCartesianRange(double low, double high);
    void SetSphericalRange(double distanceLow, double distanceHigh, double azimuthLow,
                           double azimuthHigh, double elevationLow, double elevationHigh);

    /// Writes x, y and z, each held to the Cartesian range on its own. Always 1.
    int SphericalToCartesian(double distance, double azimuth, double elevation, double& x,
                             double& y, double& z) const;

    /// Writes the spherical form, azimuth and elevation held to their ranges. With
    /// `limitDistance` 1 a distance outside its range is held too, and only then x, y and z are
    /// written: the point drawn back along its ray. Always 1.
    int CartesianToSpherical(double& x, double& y, double& z, double& distance, double& azimuth,
                             double& elevation, int limitDistance) const;

private:
    double m_dDistLow = 0.0;
    double m_dDistHigh = 0.0;
    double m_dAzimLow = 0.0;
    double m_dAzimHigh = 0.0;
    double m_dElevLow = 0.0;
    double m_dElevHigh = 0.0;
    double m_dCartLow = 0.0;
    double m_dCartHigh = 0.0;
};

/// A converter with the limits of the editor, the ranges above.
ORBIX_API C3DPosConverter EditorLimits();

/// To the grid of 50, halves up: the low 16 bits of the truncated value, unsigned, are rounded.
ORBIX_API int RoundDistance(double distance);
/// To the nearest multiple of 3 by whole degrees; the low 16 bits of the truncated value, signed.
ORBIX_API int RoundAngle(double angle);
/// To the grid of 3 toward zero.
ORBIX_API double TruncateAngle(double angle);
/// To a whole number, halves away from zero; held to 32 bits.
ORBIX_API int RoundHalfAway(double value);
/// To a whole number toward zero; held to 32 bits, 0 for what is no number.
ORBIX_API int Truncate(double value);

/// Metres with two decimals and a point, whatever the host's locale: 6350.0 gives "6.35".
ORBIX_API CString MetresText(double millimetres);
