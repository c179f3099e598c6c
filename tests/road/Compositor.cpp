#include "road/Compositor.h"
#include "support/Events.h"
#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

constexpr int LimitMs = 60000;
const QString SocketName = QStringLiteral("wayland-station");
constexpr QRgb DesktopColor = 0xFF204060U;
/// A bare desktop of one colour: no clock on it that would change the picture.
constexpr auto Configuration = "[shell]\n"
                               "background-color=0xff204060\n"
                               "panel-position=none\n"
                               "locking=false\n";

QProcessEnvironment With(const QMap<QString, QString>& changes)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto change = changes.begin(); change != changes.end(); ++change)
        environment.insert(change.key(), change.value());
    return environment;
}

} // namespace

Compositor::Compositor()
{
    EXPECT_TRUE(QFile::setPermissions(m_runtime.path(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QFile configuration(m_runtime.filePath(QStringLiteral("weston.ini")));
    EXPECT_TRUE(configuration.open(QIODevice::WriteOnly));
    configuration.write(Configuration);
    configuration.close();
    m_process.setProcessEnvironment(With({{QStringLiteral("XDG_RUNTIME_DIR"), m_runtime.path()}}));
    m_process.setStandardOutputFile(m_runtime.filePath(QStringLiteral("weston.log")));
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QStringLiteral("weston"),
                    {QStringLiteral("--backend=headless-backend.so"),
                     QStringLiteral("--use-pixman"), QStringLiteral("--width=1280"),
                     QStringLiteral("--height=800"), QStringLiteral("--idle-time=0"),
                     QStringLiteral("--debug"),
                     QStringLiteral("--config=") + configuration.fileName(),
                     QStringLiteral("--socket=") + SocketName});
    EXPECT_TRUE(m_process.waitForStarted(LimitMs));
    EXPECT_TRUE(EventsUntil([&] {
        return m_process.state() == QProcess::NotRunning ||
               QFileInfo::exists(m_runtime.filePath(SocketName));
    }));
    // Pixels that differ before the desktop has been drawn are no window.
    EXPECT_TRUE(EventsUntil(
        [&] { return m_process.state() == QProcess::NotRunning || CoveredPixels() == 0; }));
    EXPECT_EQ(m_process.state(), QProcess::Running);
}

Compositor::~Compositor()
{
    // It ends the programs of its own desktop.
    m_process.terminate();
    if (!m_process.waitForFinished(LimitMs))
        m_process.kill();
}

QMap<QString, QString> Compositor::Environment() const
{
    return {{QStringLiteral("XDG_RUNTIME_DIR"), m_runtime.path()},
            {QStringLiteral("WAYLAND_DISPLAY"), SocketName},
            {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland")},
            // The leak check of a sanitizer sees by whole stacks only what a graphics driver keeps.
            {QStringLiteral("ASAN_OPTIONS"),
             qEnvironmentVariable("ASAN_OPTIONS") + QStringLiteral(":fast_unwind_on_malloc=0")}};
}

QImage Compositor::Screen() const
{
    // The tool chooses the file's name.
    const QTemporaryDir folder;
    QProcess shooter;
    shooter.setWorkingDirectory(folder.path());
    QMap<QString, QString> environment = Environment();
    environment.insert(QStringLiteral("XDG_PICTURES_DIR"), folder.path());
    shooter.setProcessEnvironment(With(environment));
    shooter.start(QStringLiteral("weston-screenshooter"), {});
    EXPECT_TRUE(shooter.waitForFinished(LimitMs));
    EXPECT_EQ(shooter.exitCode(), 0) << shooter.readAllStandardError().constData();
    const QFileInfoList pictures =
        QDir(folder.path()).entryInfoList({QStringLiteral("*.png")}, QDir::Files);
    EXPECT_EQ(pictures.size(), 1);
    return pictures.isEmpty() ? QImage() : QImage(pictures.front().filePath());
}

int Compositor::CoveredPixels() const
{
    const QImage screen = Screen();
    int covered = 0;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x)
            covered += screen.pixel(x, y) == DesktopColor ? 0 : 1;
    }
    return covered;
}

} // namespace vantrel::test
