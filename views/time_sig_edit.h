#pragma once

#include "platform/controls.h"
#include "sequence/musical_types.h"
#include "views/empty_fill_spin.h"
#include "views/numeric_edit.h"

class CDataExchange;

/// The controls for a time signature: frame, numerator with its spin, the text between and the
/// denominator. Main thread only.
class ORBIX_API CTimeSigEdit {
public:
    CTimeSigEdit() = default;
    virtual ~CTimeSigEdit();
    CTimeSigEdit(const CTimeSigEdit&) = delete;
    CTimeSigEdit& operator=(const CTimeSigEdit&) = delete;

    /// Binds the five controls (1036, 4025, 4026, 1037, 4024); for the dialog's DoDataExchange.
    void BindControls(CDataExchange* exchange);

    /// Enables or disables all of them; nothing before they have windows.
    void EnableAll(bool enable);
    /// What the controls say, at measure 1, beat 1, tick 0. A field that holds no number gives
    /// the record's number. The record stays as it is.
    void GetTimeSig(t_tSigMapRec& timeSig) const;
    /// Takes the record and shows it; nothing before the controls have windows.
    void SetTimeSig(const t_tSigMapRec& timeSig);

private:
    bool HasWindows() const;

    CStatic m_Frame;
    CNumericEdit m_Numerator;
    CEmptyFillSpin m_Spin;
    CStatic m_Slash;
    CComboBox m_Denominator;
    t_tSigMapRec m_Record;
};
