#pragma once

#include "station/imaging/CameraLibrary.h"
#include <QDialog>
#include <memory>

class QLabel;
class QPushButton;

namespace vantrel {

class DesktopPhotoView;
class Session;

/// Takes a picture from a camera, a folder or a file for the camera objects of the card. The part
/// that is taken is shown on the picture itself, in the proportions of its box. It is open without
/// blocking the station.
class frmTakePhoto : public QDialog
{
    Q_OBJECT

public:
    frmTakePhoto(Session& session, QWidget* parent);
    ~frmTakePhoto() override;

private:
    QLayout* MakePicture();
    QLayout* MakeSide();
    QPushButton* MakeButton(const char* name, const QString& caption,
                            void (frmTakePhoto::*press)());
    /// Begins with the camera that the settings name.
    void StartCamera();
    void TakePicture();
    void Import();
    void ChooseFolder();
    void Enlarge();
    void Reduce();
    void UsePart();
    void ShowPicture(const Picture& picture);
    void ShowPart();
    /// Shows why there is no picture, to the eye and to screen readers; an empty text hides it.
    void TellProblem(const QString& problem);

    Session& m_session;
    /// Size in twips of the box that the picture is for; empty if the card has none.
    QSizeF m_box;
    std::unique_ptr<Cam> m_camera;
    DesktopPhotoView* m_picture;
    QLabel* m_problem;
    QLabel* m_part;
    QLabel* m_dots;
    QPushButton* m_use = nullptr;
};

} // namespace vantrel
