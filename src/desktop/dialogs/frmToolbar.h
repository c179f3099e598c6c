#pragma once

#include <QDialog>
#include <array>

class QCheckBox;
class QLineEdit;
class QListWidget;

namespace vantrel {

class Session;
struct DataSettings;

/// "Data Settings": delimiters, filters and record buffering. The filters act at once, the rest
/// when it is saved.
class frmToolbar : public QDialog
{
    Q_OBJECT

public:
    frmToolbar(Session& session, QWidget* parent);

private:
    QLineEdit* MakeDelimiterBox(const char* name, const QString& what);
    void LayOut();
    void ShowDelimiters(const DataSettings& settings);
    void LoadFilterList();
    void StoreFilterRow(int row);
    void Save();

    Session& m_session;
    QLineEdit* m_start;
    QLineEdit* m_delimiter;
    QLineEdit* m_end;
    QCheckBox* m_buffer;
    QListWidget* m_filters;
};

} // namespace vantrel
