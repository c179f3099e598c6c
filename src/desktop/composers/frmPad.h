#pragma once

#include <QDialog>
#include <cstdint>

class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace vantrel {

class DesktopSample;
class DesktopUpDown;
class Session;

/// Asks how a field of a track is padded. With design tools it shows what the last record's value
/// becomes while the padding is typed. The answers are in `Session::Pad` once the dialog is
/// closed.
class frmPad : public QDialog
{
    Q_OBJECT

public:
    /// Resets what an earlier dialog left in the session, except for the field.
    frmPad(Session& session, QWidget* parent);

    /// Fills the dialog with these values, shows it and waits until it is closed by any button. A
    /// direction other than 0 and 1 marks neither side. The session may hold another layout or
    /// another record afterwards.
    void Show_Data(const QString& padChars, std::int16_t padLen, std::int32_t padDirection);

private:
    void BuildFields();
    void BuildControls();
    void ChooseField();
    void ShowLength(int length);
    void FollowLengthText();
    QWidget* MakeSample();
    void ShowSample();
    /// The side that is marked.
    std::int32_t Direction() const;
    void Save();

    Session& m_session;
    QTreeWidget* m_fields;
    QLineEdit* m_data;
    QLineEdit* m_length;
    DesktopUpDown* m_arrows;
    QRadioButton* m_directions[2] = {};
    QPushButton* m_save;
    /// Null without design tools.
    DesktopSample* m_sample = nullptr;
    /// The direction that is kept while neither side is marked.
    std::int32_t m_direction = 0;
};

} // namespace vantrel
