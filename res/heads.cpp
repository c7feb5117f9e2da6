#include <algorithm>
#include <array>
#include <cstddef>

#include "res/resources.h"

// The listener's head as each plane shows it. Four figures, each also turned upside down, and
// for each figure a mask of the same outline: white inside, black outside. The pictures stand on
// black, as the planes do.

namespace {

/// Two literals as one.
template <std::size_t A, std::size_t B>
constexpr std::array<char, A + B - 1> Join(const std::array<char, A>& first,
                                           const char (&second)[B]) {
    std::array<char, A + B - 1> joined{};
    std::copy_n(first.begin(), A - 1, joined.begin());
    std::copy_n(second, B, joined.begin() + (A - 1));
    return joined;
}

constexpr auto kUpright = std::to_array(
    "<svg xmlns='http://www.w3.org/2000/svg' width='32' height='32' viewBox='0 0 32 32'>"
    "<rect width='32' height='32' fill='#000000'/><g>");
constexpr auto kTurned = std::to_array(
    "<svg xmlns='http://www.w3.org/2000/svg' width='32' height='32' viewBox='0 0 32 32'>"
    "<rect width='32' height='32' fill='#000000'/><g transform='rotate(180 16 16)'>");

/// From above, nose to the top: shoulders, ears, nose, hair with its parting.
constexpr char kAbove[] =
    "<ellipse cx='16' cy='20' rx='15' ry='6.5' fill='#3f6fb4' stroke='#7fa6de'/>"
    "<path d='M12.6 8 L16 1.5 L19.4 8 Z' fill='#f3c49c'/>"
    "<ellipse cx='7' cy='16' rx='2.2' ry='3' fill='#f3c49c'/>"
    "<ellipse cx='25' cy='16' rx='2.2' ry='3' fill='#f3c49c'/>"
    "<ellipse cx='16' cy='16' rx='9' ry='10' fill='#f3c49c'/>"
    "<path d='M7.2 15 Q9 9.5 16 9 Q23 9.5 24.8 15 Q25.5 25.5 16 26 Q6.5 25.5 7.2 15 Z'"
    " fill='#6b4226'/>"
    "<path d='M16 9.5 V20' stroke='#9a6a44' stroke-width='1.2'/></g></svg>";
constexpr char kAboveMask[] =
    "<ellipse cx='16' cy='20' rx='15' ry='6.5' fill='#ffffff' stroke='#ffffff'/>"
    "<path d='M12.6 8 L16 1.5 L19.4 8 Z' fill='#ffffff'/>"
    "<ellipse cx='7' cy='16' rx='2.2' ry='3' fill='#ffffff'/>"
    "<ellipse cx='25' cy='16' rx='2.2' ry='3' fill='#ffffff'/>"
    "<ellipse cx='16' cy='16' rx='9' ry='10' fill='#ffffff'/></g></svg>";

/// From below: the two soles with heel and ball, toes to the top.
constexpr char kBelow[] =
    "<path d='M9 1.5 C14.5 1.5 15 8 14.2 13 C13.5 17 14 20 14 24 C14 32 5.5 32 5.5 24"
    " C5.5 19 4.5 16 3.6 12 C2.6 6 4 1.5 9 1.5 Z' fill='#c98f5a' stroke='#f0d2ad'/>"
    "<path d='M23 1.5 C17.5 1.5 17 8 17.8 13 C18.5 17 18 20 18 24 C18 32 26.5 32 26.5 24"
    " C26.5 19 27.5 16 28.4 12 C29.4 6 28 1.5 23 1.5 Z' fill='#c98f5a' stroke='#f0d2ad'/>"
    "<path d='M5.5 5.5 H12.5 M5 8.5 H13.3 M5.3 11.5 H13 M19.5 5.5 H26.5 M18.7 8.5 H27"
    " M19 11.5 H26.7' stroke='#5d3a1c' stroke-width='1.2'/>"
    "<path d='M6.6 22.5 H13 V25 Q12.4 28.6 9.8 28.6 Q7.2 28.6 6.6 25 Z M25.4 22.5 H19 V25"
    " Q19.6 28.6 22.2 28.6 Q24.8 28.6 25.4 25 Z' fill='#5d3a1c'/></g></svg>";
constexpr char kBelowMask[] =
    "<path d='M9 1.5 C14.5 1.5 15 8 14.2 13 C13.5 17 14 20 14 24 C14 32 5.5 32 5.5 24"
    " C5.5 19 4.5 16 3.6 12 C2.6 6 4 1.5 9 1.5 Z' fill='#ffffff' stroke='#ffffff'/>"
    "<path d='M23 1.5 C17.5 1.5 17 8 17.8 13 C18.5 17 18 20 18 24 C18 32 26.5 32 26.5 24"
    " C26.5 19 27.5 16 28.4 12 C29.4 6 28 1.5 23 1.5 Z' fill='#ffffff' stroke='#ffffff'/>"
    "</g></svg>";

/// The face: eyes, brows, nose, mouth, hair to the forehead; neck at the bottom.
constexpr char kFace[] =
    "<path d='M11.5 24 H20.5 V31.5 H11.5 Z' fill='#d9a67c'/>"
    "<ellipse cx='5.8' cy='16' rx='2.3' ry='3.4' fill='#e3b188'/>"
    "<ellipse cx='26.2' cy='16' rx='2.3' ry='3.4' fill='#e3b188'/>"
    "<ellipse cx='16' cy='15' rx='10' ry='13' fill='#f3c49c'/>"
    "<path d='M6 13 Q5.5 2 16 1.5 Q26.5 2 26 13 Q24 7.5 16 7.5 Q8 7.5 6 13 Z' fill='#6b4226'/>"
    "<path d='M9.3 11 H14 M18 11 H22.7' stroke='#6b4226' stroke-width='1.4'/>"
    "<ellipse cx='11.8' cy='14' rx='2.3' ry='1.7' fill='#ffffff'/>"
    "<ellipse cx='20.2' cy='14' rx='2.3' ry='1.7' fill='#ffffff'/>"
    "<circle cx='11.8' cy='14' r='1.3' fill='#1d2f4f'/>"
    "<circle cx='20.2' cy='14' r='1.3' fill='#1d2f4f'/>"
    "<path d='M16 14 L14.3 19 H17.2' fill='none' stroke='#a86f47' stroke-width='1.1'/>"
    "<path d='M11.5 22 Q16 26 20.5 22' fill='none' stroke='#b03a3a' stroke-width='1.7'/></g></svg>";
/// The back of the head: hair down to the neck.
constexpr char kBack[] =
    "<path d='M11.5 24 H20.5 V31.5 H11.5 Z' fill='#d9a67c'/>"
    "<ellipse cx='5.8' cy='16' rx='2.3' ry='3.4' fill='#e3b188'/>"
    "<ellipse cx='26.2' cy='16' rx='2.3' ry='3.4' fill='#e3b188'/>"
    "<ellipse cx='16' cy='15' rx='10' ry='13' fill='#6b4226'/>"
    "<path d='M16 3 Q10 11 10.5 24 M16 3 V26.5 M16 3 Q22 11 21.5 24' fill='none'"
    " stroke='#9a6a44' stroke-width='1.2'/></g></svg>";
constexpr char kHeadMask[] =
    "<path d='M11.5 24 H20.5 V31.5 H11.5 Z' fill='#ffffff'/>"
    "<ellipse cx='5.8' cy='16' rx='2.3' ry='3.4' fill='#ffffff'/>"
    "<ellipse cx='26.2' cy='16' rx='2.3' ry='3.4' fill='#ffffff'/>"
    "<ellipse cx='16' cy='15' rx='10' ry='13' fill='#ffffff'/></g></svg>";

constexpr auto kFaceUpright = Join(kUpright, kFace);
constexpr auto kFaceTurned = Join(kTurned, kFace);
constexpr auto kBackUpright = Join(kUpright, kBack);
constexpr auto kBackTurned = Join(kTurned, kBack);
constexpr auto kHeadMaskUpright = Join(kUpright, kHeadMask);
constexpr auto kHeadMaskTurned = Join(kTurned, kHeadMask);
constexpr auto kAboveUpright = Join(kUpright, kAbove);
constexpr auto kAboveTurned = Join(kTurned, kAbove);
constexpr auto kAboveMaskUpright = Join(kUpright, kAboveMask);
constexpr auto kAboveMaskTurned = Join(kTurned, kAboveMask);
constexpr auto kBelowUpright = Join(kUpright, kBelow);
constexpr auto kBelowTurned = Join(kTurned, kBelow);
constexpr auto kBelowMaskUpright = Join(kUpright, kBelowMask);
constexpr auto kBelowMaskTurned = Join(kTurned, kBelowMask);

constexpr PictureResource kPictures[] = {
    {5000, 32, kFaceUpright.data()},  {5001, 32, kHeadMaskUpright.data()},
    {5002, 32, kBackUpright.data()},  {5003, 32, kHeadMaskUpright.data()},
    {5004, 32, kAboveUpright.data()}, {5005, 32, kAboveMaskUpright.data()},
    {5006, 32, kFaceTurned.data()},   {5007, 32, kHeadMaskTurned.data()},
    {5008, 32, kBackTurned.data()},   {5009, 32, kHeadMaskTurned.data()},
    {5010, 32, kBelowUpright.data()}, {5011, 32, kBelowMaskUpright.data()},
    {5012, 32, kBelowTurned.data()},  {5013, 32, kBelowMaskTurned.data()},
    {5014, 32, kAboveTurned.data()},  {5015, 32, kAboveMaskTurned.data()},
};

}  // namespace

constinit const std::span<const PictureResource> kHeadPictures = kPictures;
