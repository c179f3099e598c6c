#pragma once

#include <QDialog>

namespace vantrel {

class DesktopRawText;
class Session;

/// The last raw input, as text or as the codes of its characters. It shows new input only after a
/// refresh.
class frmRawData : public QDialog
{
    Q_OBJECT

public:
    frmRawData(Session& session, QWidget* parent);

private:
    void LayOut();
    void View(bool hex);
    void Refresh();
    void Copy();
    void Clear();

    Session& m_session;
    DesktopRawText* m_data;
    bool m_viewHex = false;
};

} // namespace vantrel
