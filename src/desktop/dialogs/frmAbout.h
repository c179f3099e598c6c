#pragma once

#include <QDialog>

namespace vantrel {

class Session;

/// The about box: the title, the version, and a link to the maker's web site.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    frmAbout(Session& session, QWidget* parent);
};

} // namespace vantrel
