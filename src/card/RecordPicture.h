#pragma once

#include "card/FieldValues.h"
#include "drawing/Picture.h"
#include <QStringList>

namespace vantrel {

class CardDocument;

/// @file A picture for each card: an image whose path holds `{1}`, `{2}` ..., the number of a
/// value, or `{NAME}`, the name of a column where the values have names.

/// Whether a path holds a placeholder. Braces around anything else are a part of a path.
/// @param columns  the names of the values in their order, compared exactly; empty if they have
/// none
bool HasPlaceholder(const QString& path, const QStringList& columns);

/// The path with the values of a record in place of its placeholders. Braces within a value are no
/// placeholders. Fails with `SubscriptOutOfRange` if the record has no such value.
QString FilledPath(const QString& path, const FieldValues& values, const QStringList& columns);

/// The picture of that name in a folder or in a folder below it. A name that came from outside
/// never leads to anything else: see `FileBeneath`, with whose failures it fails. Fails with
/// `InvalidPicture` if the file is no whole picture, recognised by its content. The texts of all
/// failures are meant for the operator.
/// @param name  tried as it is; no ending is added
Picture SafePictureIn(const QString& folder, const QString& name);

/// Where the pictures are that records name.
struct PictureSource
{
    /// Empty for none; a placeholder in a path is then a part of the path.
    QString Folder = {};
    /// The names of the values in their order; empty if they have none.
    QStringList Columns = {};

    /// Whether an image of that path shows a picture that the record in hand names.
    bool IsNamedByRecord(const QString& path) const;
    /// Whether it would be for a file whose columns have the right names.
    bool MayBeNamedByRow(const QString& path) const;
    /// The part of a path that is looked up in the folder: the path itself, or what follows the
    /// folder if the path begins with it, as it does after the picture was chosen there.
    QString NameIn(const QString& path) const;
};

/// Gives the images of a document whose paths hold placeholders the pictures that a record names,
/// or no picture and the reason in `PictureProblem`. Without values, images keep what they show.
void FillRecordPictures(CardDocument& document, const FieldValues& values,
                        const PictureSource& source);

} // namespace vantrel
