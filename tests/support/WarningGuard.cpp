#include "support/WarningGuard.h"
#include <QStringList>
#include <cstdio>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QStringList& Announced()
{
    static QStringList announced;
    return announced;
}

void OnMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    for (const QString& expected : std::as_const(Announced())) {
        if (text.contains(expected))
            return;
    }
    ADD_FAILURE() << "unannounced warning: " << text.toStdString();
}

/// Announcements hold for one test only.
class ForgetAnnounced : public ::testing::EmptyTestEventListener
{
    void OnTestEnd(const ::testing::TestInfo& /*test*/) override { Announced().clear(); }
};

} // namespace

void InstallWarningGuard()
{
    qInstallMessageHandler(OnMessage);
    ::testing::UnitTest::GetInstance()->listeners().Append(new ForgetAnnounced);
}

void AnnounceWarning(const QString& containing)
{
    Announced().append(containing);
}

} // namespace vantrel::test
