#include "views/page_cartesian.h"

#include "platform/native.h"

const CRuntimeClass CPage3DPosCartesianal::classCPage3DPosCartesianal{
    "CPage3DPosCartesianal", &CPropertyPage::classCPropertyPage};

namespace {

constexpr int kSetButton = 4077;

/// The slider position of 0 mm, and the highest one.
constexpr int kMiddle = 255;
constexpr int kHighest = 510;

constexpr PositionRowLayout kXRow{4013, 4060, 4062,     4063,
                                  4064, 4061, kHighest, {"-12.75", "0", "12.75"}};
constexpr PositionRowLayout kYRow{4076, 4065, 4066,     4068,
                                  4069, 4067, kHighest, {"-12.75", "0", "12.75"}};
constexpr PositionRowLayout kZRow{4075, 4070, 4071,     4073,
                                  4074, 4072, kHighest, {"-12.75", "0", "12.75"}};

double LengthOf(int position) {
    return (position - kMiddle) * 50.0;
}

int PositionOf(double length) {
    return RoundHalfAway(length * 0.02) + kMiddle;
}

CString TextOf(int position) {
    return MetresText(LengthOf(position));
}

}  // namespace

CPage3DPosCartesianal::CPage3DPosCartesianal()
    : CPropertyPage(kTemplateId),
      m_Rows{PositionRow(kXRow), PositionRow(kYRow), PositionRow(kZRow)} {}

const CRuntimeClass* CPage3DPosCartesianal::GetRuntimeClass() const {
    return &classCPage3DPosCartesianal;
}

CPage3DPosCartesianal::~CPage3DPosCartesianal() = default;

const MessageMap* CPage3DPosCartesianal::GetMessageMap() const {
    static constexpr MessageEntry entries[] = {
        OnMessage<&CPage3DPosCartesianal::OnHScroll>(WM_HSCROLL),
        OnMessage<&CPage3DPosCartesianal::OnSetPos>(WM_SET3DPOS),
        OnMessage<&CPage3DPosCartesianal::OnEnablePage>(WM_ENABLEPAGE),
        OnMessage<&CPage3DPosCartesianal::OnRepeatClick>(WM_REPEATCLICK),
        OnCommand<&CPage3DPosCartesianal::OnBnClickedSet>(kSetButton),
    };
    static const MessageMap map{CPropertyPage::GetMessageMap(), entries};
    return &map;
}

void CPage3DPosCartesianal::DoDataExchange(CDataExchange* exchange) {
    CPropertyPage::DoDataExchange(exchange);
    for (PositionRow& row : m_Rows) {
        row.Exchange(exchange);
    }
}

void CPage3DPosCartesianal::InitPage(HWND owner, const C3DPosConverter& converter) {
    m_hWndOwner = owner;
    m_Converter = converter;
    for (PositionRow& row : m_Rows) {
        row.Init(*this, kMiddle, TextOf(kMiddle));
    }
    m_bDirty = 0;
}

void CPage3DPosCartesianal::SetDirty(bool dirty) {
    m_bDirty = dirty ? 1 : 0;
    if (CWnd* button = GetDlgItem(kSetButton)) {
        button->EnableWindow(dirty);
    }
}

// Only a real movement makes the page dirty.
LRESULT CPage3DPosCartesianal::OnHScroll(WPARAM /*wParam*/, LPARAM lParam) {
    for (PositionRow& row : m_Rows) {
        if (!row.HasSlider(*this, reinterpret_cast<HWND>(lParam))) {
            continue;
        }
        const int previous = row.Position();
        row.ReadSlider(*this);
        row.ShowText(TextOf(row.Position()));
        if (row.Position() != previous) {
            SetDirty(true);
        }
        return 0;
    }
    return Default();
}

LRESULT CPage3DPosCartesianal::OnSetPos(WPARAM wParam, LPARAM /*lParam*/) {
    const auto& position = *reinterpret_cast<const tag3DPosMsg*>(wParam);
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    m_Converter.SphericalToCartesian(position.distance, position.azimuth, position.elevation, x, y,
                                     z);
    ShowPoint(x, y, z);
    return 0;
}

// The controls show the point before anyone hears of it.
void CPage3DPosCartesianal::OnBnClickedSet() {
    double x = LengthOf(m_Rows[0].Position());
    double y = LengthOf(m_Rows[1].Position());
    double z = LengthOf(m_Rows[2].Position());
    double distance = 0.0;
    double azimuth = 0.0;
    double elevation = 0.0;
    m_Converter.CartesianToSpherical(x, y, z, distance, azimuth, elevation, 1);
    ShowPoint(x, y, z);
    tag3DPosMsg position{RoundDistance(RoundHalfAway(distance)),
                         RoundHalfAway(TruncateAngle(azimuth)),
                         RoundHalfAway(TruncateAngle(elevation))};
    dispatch::Send(m_hWndOwner, WM_SET3DPOS, reinterpret_cast<WPARAM>(&position),
                   kFromCartesianPage);
}

void CPage3DPosCartesianal::ShowPoint(double x, double y, double z) {
    const std::array<double, 3> lengths{x, y, z};
    for (std::size_t row = 0; row < lengths.size(); ++row) {
        const int position = PositionOf(lengths[row]);
        m_Rows[row].SetPosition(position, TextOf(position));
    }
    SetDirty(false);
    UpdateData(FALSE);
    UpdateWindow();
}

LRESULT CPage3DPosCartesianal::OnEnablePage(WPARAM wParam, LPARAM /*lParam*/) {
    for (PositionRow& row : m_Rows) {
        row.Enable(*this, wParam != 0);
    }
    if (CWnd* button = GetDlgItem(kSetButton)) {
        button->EnableWindow(wParam != 0 && m_bDirty == 1);
    }
    return 0;
}

LRESULT CPage3DPosCartesianal::OnRepeatClick(WPARAM wParam, LPARAM /*lParam*/) {
    StepRows(*this, m_Rows, static_cast<int>(wParam));
    UpdateWindow();
    return 0;
}
