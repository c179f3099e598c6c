#include "TrackModel.h"
#include "station/print/EncodeData.h"
#include "station/session/Session.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <array>
#include <gtest/gtest.h>
#include <random>

// Random formulas on every type of printer, compared with a plain model of the rules.

namespace vantrel::test {
namespace {

class Chance
{
public:
    std::size_t Below(std::size_t limit) { return m_engine() % limit; }
    bool Once(std::size_t in) { return Below(in) == 0; }

    template <typename Choices>
    auto Of(const Choices& choices)
    {
        return choices[Below(choices.size())];
    }

    std::string Text(const std::string& characters, std::size_t longest)
    {
        std::string text;
        for (std::size_t i = Below(longest + 1); i > 0; --i)
            text += Of(characters);
        return text;
    }

private:
    // The same formulas in every run; the engine's output is laid down by the standard.
    std::mt19937 m_engine{20240229};
};

/// A number that is mostly valid and sometimes no number.
std::string Number(Chance& chance, std::size_t highest)
{
    if (chance.Once(40))
        return chance.Of(std::array<const char*, 10>{"", "x", "1.0", "-1", "99999", "3000000000",
                                                     "1E1", "1 1", "+", "99999999999999999999"});
    const std::string number = std::to_string(chance.Below(highest + 1));
    return chance.Once(10) ? " +0" + number + " " : number;
}

std::string FormattedField(Chance& chance, std::size_t fields)
{
    std::string token = "FD" + chance.Text("0xX ^F", 2) + '^' + Number(chance, 12) + '^' +
                        Number(chance, 2) + '^' + Number(chance, fields);
    if (chance.Once(20))
        token += "^more";
    if (chance.Once(20))
        token.resize(token.size() / 2);
    return token;
}

std::string Token(Chance& chance, std::size_t fields)
{
    switch (chance.Below(8)) {
    case 0:
    case 1:
        return "DAT" + Number(chance, fields);
    case 2:
        return chance.Text("0123456789 abXY=-", 8);
    case 3:
        return "SEP";
    case 4:
        return chance.Of(std::array<const char*, 3>{"MOD10", "CODABAR", "EBT"});
    case 5:
        return chance.Of(std::array<const char*, 8>{"AUTO1", "MODEL", "DEBT", "SEPIA", "",
                                                    "AUTOSEP", "UPDATE", "TEXT"});
    default:
        return FormattedField(chance, fields);
    }
}

std::string Formula(Chance& chance, std::size_t fields)
{
    std::string formula = Token(chance, fields);
    for (std::size_t i = chance.Below(6); i > 0; --i)
        formula += '~' + Token(chance, fields);
    return formula;
}

std::vector<std::string> Values(Chance& chance)
{
    std::vector<std::string> values(1 + chance.Below(4));
    for (std::string& value : values)
        value = chance.Text(chance.Once(2) ? "0123456789" : "0123456789 abXY=%^:;~?><+-!@", 14);
    return values;
}

QStringList ToTexts(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts)
        list.append(QString::fromStdString(text));
    return list;
}

} // namespace

TEST(RandomTracks, EveryFamilySendsWhatTheModelSends)
{
    constexpr int formulas = 4000;
    TestSession station;
    Chance chance;
    int sent = 0;
    int failed = 0;
    for (int i = 0; i < formulas; ++i) {
        const std::vector<std::string> values = Values(chance);
        const std::string formula = Formula(chance, values.size());
        SetRecord(station.Session, ToTexts(values));
        for (const int printerType : {1, 2, 4, 5, 9, 11}) {
            const int track = 1 + static_cast<int>(chance.Below(3));
            station.Session.CurrentParams.PrinterType = printerType;
            QStringList& operations = station.Printers.Operations;
            operations.clear();
            if (FailureOf([&] {
                    EncodeData(station.Session.Printers, station.Session.CurrentParams.PrinterType,
                               station.Session.FieldValues, QString::fromStdString(formula), track);
                }) != 0)
                operations.append(QStringLiteral("failed"));
            ASSERT_EQ(operations, ToTexts(ModelOfTrack(printerType, track, formula, values)))
                << "type " << printerType << ", track " << track << ", formula " << formula
                << ", values " << ToTexts(values).join(u'|').toStdString();
            operations.endsWith(QStringLiteral("failed")) ? ++failed : ++sent;
        }
    }
    // The formulas must be neither all valid nor all invalid.
    EXPECT_GT(sent, formulas);
    EXPECT_GT(failed, formulas);
}

} // namespace vantrel::test
