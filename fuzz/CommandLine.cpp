#include "programs/vantrel-admin/CommandLine.h"
#include "FuzzInput.h"
#include "programs/vantrel-admin/LedgerOptions.h"
#include "programs/vantrel-console/ConsoleOptions.h"
#include "programs/vantrel-print/PrintOptions.h"

// For any words behind a program's name: they are understood, or help or a mistake in one line is
// the answer, and nothing else.

namespace {

using namespace vantrel;

void RequireLine(const QString& mistake, const QStringList& words)
{
    // A word is quoted as it was given.
    const bool hasLines = words.join(QString()).contains(u'\n');
    fuzz::Require(hasLines || !mistake.trimmed().contains(u'\n'), "a mistake is one line");
}

void ReadForAdmin(const QStringList& words)
{
    const admin::Request request = admin::ReadCommandLine(words);
    fuzz::Require((request.Chosen != nullptr ? 1 : 0) + (request.Help.isEmpty() ? 0 : 1) +
                          (request.Mistake.isEmpty() ? 0 : 1) ==
                      1,
                  "a line is a command, a question for help or a mistake");
    RequireLine(request.Mistake, words);
    if (request.Chosen == nullptr)
        return;
    try {
        const LedgerFilter filter = admin::FilterOf(request.Given);
        fuzz::Require(filter.Limit >= 0 && filter.Before.value_or(0) >= 0,
                      "numbers are not below 0");
    } catch (const admin::NotUnderstood& mistake) {
        fuzz::Require(!mistake.Text.isEmpty(), "a mistake has a reason");
    }
}

void ReadForConsole(const QStringList& words)
{
    const console::OptionsRequest request = console::ReadCommandLine(words);
    if (!request.Mistake.isEmpty() || !request.Help.isEmpty()) {
        RequireLine(request.Mistake, words);
        return;
    }
    fuzz::Require(request.Options.has_value(), "a line without a mistake has options");
    const console::ConsoleOptions& options = *request.Options;
    fuzz::Require(!options.Folder.isEmpty(), "a program folder is named");
    fuzz::Require(options.Listen.Address.isLoopback() || !options.Certificate.isEmpty(),
                  "others reach the console over TLS only");
    fuzz::Require(options.Certificate.isEmpty() == options.Key.isEmpty(),
                  "a certificate has its key");
}

void ReadForPrint(const QStringList& words)
{
    const print::Request request =
        print::ReadCommandLine(QStringList(QStringLiteral("vantrel-print")) + words);
    fuzz::Require((request.Options ? 1 : 0) + (request.Help.isEmpty() ? 0 : 1) +
                          (request.Mistake.isEmpty() ? 0 : 1) ==
                      1,
                  "a line is a run, a question for help or a mistake");
    RequireLine(request.Mistake, words);
    if (!request.Options)
        return;
    const print::PrintOptions& options = *request.Options;
    fuzz::Require(!options.Folder.isEmpty() && !options.Target.Name().isEmpty(),
                  "a folder and a layout are named");
    fuzz::Require(options.First >= 1 && options.Count.value_or(1) >= 1 && options.Workers >= 1 &&
                      options.Workers <= 64,
                  "numbers are within their limits");
    fuzz::Require(options.Columns.isEmpty() || options.HasHeader, "chosen columns have names");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const int program = input.Byte() % 3;
    QStringList words;
    while (!input.IsEmpty() && words.size() < 64)
        words += input.Line();
    if (program == 0)
        ReadForAdmin(words);
    else if (program == 1)
        ReadForConsole(words);
    else
        ReadForPrint(words);
    return 0;
}
