#include "samples/DemoInstall.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "samples/DemoArt.h"
#include "samples/DemoLayouts.h"
#include "samples/FreshInstall.h"
#include "samples/GalleryArt.h"
#include "samples/RecommendedSettings.h"
#include "store/Connection.h"
#include <QDir>

namespace vantrel {

namespace {
struct KeyRow
{
    const char* Key;
    const char* Value;
};

constexpr KeyRow SessionKeys[] = {
    {"LastLayout", "Member Card"}, {"CaptureEnabled", "True"}, {"UseIP", "True"}, {"Port", "10001"},
    {"Filter_Cr", "True"},         {"Filter_Lf", "True"},
};

struct PictureRow
{
    const char* Name;
    QImage (*Draw)();
};

constexpr PictureRow Pictures[] = {
    {DemoPicture::Front, DrawCardFront},     {DemoPicture::Back, DrawCardBack},
    {DemoPicture::Portrait, DrawPortrait},   {DemoPicture::Badge, DrawBadge},
    {DemoPicture::GiftFront, DrawGiftFront}, {DemoPicture::GiftBack, DrawGiftBack},
    {DemoPicture::Library, DrawLibrary},     {DemoPicture::PassFront, DrawPassFront},
    {DemoPicture::PassBack, DrawPassBack},   {DemoPicture::Transport, DrawTransport},
};

[[noreturn]] void FailAsUnwritable(const QString& path)
{
    throw Failure(FailureNumber::PathNotFound, QStringLiteral("Cannot be written: ") + path);
}

void WritePictures(const QDir& images)
{
    constexpr int Quality = 92;
    if (!images.mkpath(QStringLiteral(".")))
        FailAsUnwritable(images.path());
    for (const PictureRow& row : Pictures) {
        const QString path = images.filePath(QLatin1StringView(row.Name));
        if (!row.Draw().save(path, "JPEG", Quality))
            FailAsUnwritable(path);
    }
}

void WriteSettings(const QString& path)
{
    for (const KeyRow& row : SessionKeys)
        if (!WriteProfileValue(path, QStringLiteral("Session 1"), QLatin1StringView(row.Key),
                               QLatin1StringView(row.Value)))
            FailAsUnwritable(path);
}
} // namespace

void MakeDemoFolder(const QString& folder)
{
    MakeRecommendedFolder(folder);
    // The layouts hold absolute paths, so that a station finds its pictures from any working
    // directory.
    const QDir whole(QDir(folder).absolutePath());
    const QDir images(whole.filePath(QStringLiteral("Images")));
    WritePictures(images);
    Connection store;
    store.Open(LayoutDatabasePath(folder));
    store.BeginTrans();
    WriteDemoLayouts(store, images.path());
    store.CommitTrans();
    WriteSettings(whole.filePath(QStringLiteral("Vantrel 6.ini")));
}

} // namespace vantrel
