#pragma once

#include "station/compose/CardSequence.h"
#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vantrel {

class Session;

/// The card number sequence generator. The station goes on working during a run; closing the window
/// ends the run after the present card.
class frmSendData : public QDialog
{
    Q_OBJECT

public:
    frmSendData(Session& session, QWidget* parent);

private:
    QLayout* MakeNumbers();
    QLayout* MakeCheckDigit();
    QLayout* MakeSpacing();
    QLayout* MakeButtons();
    void OnCheckDigit(bool on);
    SequenceOrder Order() const;
    void Print();

    Session& m_session;
    QLineEdit* m_start;
    QLineEdit* m_end;
    QCheckBox* m_checkDigit;
    QButtonGroup* m_schemes;
    QCheckBox* m_spacing;
    QLineEdit* m_digitCount;
    QLabel* m_out;
    QPushButton* m_print;
};

} // namespace vantrel
