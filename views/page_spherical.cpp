#include "views/page_spherical.h"

#include "platform/native.h"
#include "views/position_arithmetic.h"

const CRuntimeClass CPage3DPosSpherical::classCPage3DPosSpherical{
    "CPage3DPosSpherical", &CPropertyPage::classCPropertyPage};

namespace {

constexpr PositionRowLayout kDistanceRow{4013, 4026, 4052, 4027,
                                         4053, 4056, 255,  {"0", "6.35", "12.75"}};
constexpr PositionRowLayout kAzimuthRow{4014, 4024, 4054, 4035,
                                        4055, 4057, 119,  {"-180", "0", "177"}};
constexpr PositionRowLayout kElevationRow{4015, 4025, 4050, 4036,
                                          4051, 4058, 60,   {"-90", "0", "90"}};

/// Grids of the sliders, and the positions where the angles are 0.
constexpr int kDistanceStep = 50;
constexpr int kAngleStep = 3;
constexpr int kAzimuthMiddle = 60;
constexpr int kElevationMiddle = 30;

int AzimuthOf(int position) {
    return (position - kAzimuthMiddle) * kAngleStep;
}

int ElevationOf(int position) {
    return (position - kElevationMiddle) * kAngleStep;
}

}  // namespace

CPage3DPosSpherical::CPage3DPosSpherical()
    : CPropertyPage(kTemplateId),
      m_Rows{PositionRow(kDistanceRow), PositionRow(kAzimuthRow), PositionRow(kElevationRow)} {}

const CRuntimeClass* CPage3DPosSpherical::GetRuntimeClass() const {
    return &classCPage3DPosSpherical;
}

CPage3DPosSpherical::~CPage3DPosSpherical() = default;

const MessageMap* CPage3DPosSpherical::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnMessage<&CPage3DPosSpherical::OnHScroll>(WM_HSCROLL),
        OnMessage<&CPage3DPosSpherical::OnSetPos>(WM_SET3DPOS),
        OnMessage<&CPage3DPosSpherical::OnEnablePage>(WM_ENABLEPAGE),
        OnMessage<&CPage3DPosSpherical::OnRepeatClick>(WM_REPEATCLICK),
    };
    static const MessageMap map{CPropertyPage::GetMessageMap(), entries};
    return &map;
}

void CPage3DPosSpherical::DoDataExchange(CDataExchange* exchange) {
    CPropertyPage::DoDataExchange(exchange);
    for (PositionRow& row : m_Rows) {
        row.Exchange(exchange);
    }
}

void CPage3DPosSpherical::InitPage(HWND owner) {
    m_hWndOwner = owner;
    constexpr std::array<int, kRowCount> start{255, kAzimuthMiddle, kElevationMiddle};
    for (std::size_t row = 0; row < kRowCount; ++row) {
        m_Rows[row].Init(*this, start[row], TextOf(row, start[row]));
    }
}

CString CPage3DPosSpherical::TextOf(std::size_t row, int position) {
    switch (row) {
        case kDistance:
            return MetresText(position * 50.0);
        case kAzimuth:
            return std::to_string(AzimuthOf(position));
        default:
            return std::to_string(ElevationOf(position));
    }
}

tag3DPosMsg CPage3DPosSpherical::Position() const {
    return {m_Rows[kDistance].Position() * kDistanceStep, AzimuthOf(m_Rows[kAzimuth].Position()),
            ElevationOf(m_Rows[kElevation].Position())};
}

// Every notice is reported, one at the end of a slider's range too.
LRESULT CPage3DPosSpherical::OnHScroll(WPARAM /*wParam*/, LPARAM lParam) {
    for (std::size_t row = 0; row < kRowCount; ++row) {
        if (!m_Rows[row].HasSlider(*this, reinterpret_cast<HWND>(lParam))) {
            continue;
        }
        UpdateData(TRUE);
        m_Rows[row].ShowText(TextOf(row, m_Rows[row].Position()));
        tag3DPosMsg position = Position();
        dispatch::Send(m_hWndOwner, WM_SET3DPOS, reinterpret_cast<WPARAM>(&position),
                       kFromSphericalPage);
        return 0;
    }
    return Default();
}

LRESULT CPage3DPosSpherical::OnSetPos(WPARAM wParam, LPARAM /*lParam*/) {
    const auto& position = *reinterpret_cast<const tag3DPosMsg*>(wParam);
    const std::array<int, kRowCount> places{RoundDistance(position.distance) / kDistanceStep,
                                            position.azimuth / kAngleStep + kAzimuthMiddle,
                                            position.elevation / kAngleStep + kElevationMiddle};
    for (std::size_t row = 0; row < kRowCount; ++row) {
        m_Rows[row].SetPosition(places[row], TextOf(row, places[row]));
    }
    UpdateData(FALSE);
    return 0;
}

LRESULT CPage3DPosSpherical::OnEnablePage(WPARAM wParam, LPARAM /*lParam*/) {
    for (PositionRow& row : m_Rows) {
        row.Enable(*this, wParam != 0);
    }
    return 0;
}

LRESULT CPage3DPosSpherical::OnRepeatClick(WPARAM wParam, LPARAM /*lParam*/) {
    StepRows(*this, m_Rows, static_cast<int>(wParam));
    UpdateWindow();
    return 0;
}
