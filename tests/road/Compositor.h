#pragma once

#include <QImage>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

namespace vantrel::test {

/// A Wayland desktop of the test's own that no screen shows. It is ended with the test.
class Compositor
{
public:
    Compositor();
    ~Compositor();
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    /// What a program needs in its environment to show its windows there.
    QMap<QString, QString> Environment() const;
    /// How many of its pixels are covered by windows.
    int CoveredPixels() const;

private:
    QImage Screen() const;

    QTemporaryDir m_runtime;
    QProcess m_process;
};

} // namespace vantrel::test
