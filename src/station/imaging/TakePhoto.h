#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

namespace vantrel {

class CardDocument;
class Session;

/// @file Taking a picture for the camera objects of a page in their own proportions.

/// Size in twips of the box that a picture is taken for: that of the selected camera object, else
/// of the largest of the page; empty if there is none.
QSizeF CameraBoxOf(const CardDocument& document);

/// Stores the part as the camera image and gives it to the camera objects of the page, which show
/// it in its own proportions from then on. Fails like `Picture::FromImage`.
void AcceptPhoto(Session& session, const QImage& part);

/// Dots to the inch that a part has on the card; 0 without a box.
int DotsOnCard(QSize part, QSizeF boxTwips);

/// Names a folder whose newest picture is taken instead of a camera's, in the settings of all
/// sessions of the program folder.
/// @return why it could not be stored; empty if it was
QString NameCameraFolder(const QString& programFolder, const QString& folder);

} // namespace vantrel
