#include "ports/SerialSettings.h"
#include "ports/SerialLine.h"
#include "support/FailureOf.h"
#include <QSerialPort>
#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::test;

TEST(SerialSettings, TextGivesItsFourValuesAndComesBack)
{
    constexpr struct
    {
        const char* Text;
        SerialSettings Values;
    } Rows[] = {
        {"9600,n,8,1", {9600, 'n', 8, StopBits::One}},
        {"300,e,7,1", {300, 'e', 7, StopBits::One}},
        {"115200,o,6,2", {115200, 'o', 6, StopBits::Two}},
        {"128000,m,8,2", {128000, 'm', 8, StopBits::Two}},
        {"1200,s,5,1.5", {1200, 's', 5, StopBits::OneAndHalf}},
    };
    for (const auto& row : Rows) {
        const QString text = QString::fromLatin1(row.Text);
        EXPECT_EQ(ReadSerialSettings(text), row.Values) << row.Text;
        EXPECT_EQ(SerialSettingsText(row.Values), text);
    }
}

TEST(SerialSettings, CapitalsAndBlanksAreAccepted)
{
    EXPECT_EQ(ReadSerialSettings(QStringLiteral(" 9600, N ,8,1 ")), SerialSettings{});
}

TEST(SerialSettings, TextThatNoPortCanHaveIsRefused)
{
    for (const char* text : {"",
                             "9600",
                             "9600,n,8",
                             "9600,n,8,1,",
                             ",n,8,1",
                             "9600,,8,1",
                             "9600,n,,1",
                             "9600,n,8,",
                             "fast,n,8,1",
                             "0,n,8,1",
                             "-9600,n,8,1",
                             "99999999999,n,8,1",
                             "9600,x,8,1",
                             "9600,no,8,1",
                             "9600,n,4,1",
                             "9600,n,9,1",
                             "9600,n,8.0,1",
                             "9600,n,8,3",
                             "9600,n,8,1.5",
                             "9600,n,6,1.5",
                             "9600,n,5,2",
                             "9600;n;8;1"})
        EXPECT_EQ(FailureOf([&] { ReadSerialSettings(QString::fromLatin1(text)); }),
                  FailureNumber::InvalidCall)
            << text;
}

TEST(SerialSettings, FlowControlHasThreeNumbers)
{
    EXPECT_EQ(ReadFlowControl(0), FlowControl::None);
    EXPECT_EQ(ReadFlowControl(1), FlowControl::XonXoff);
    EXPECT_EQ(ReadFlowControl(2), FlowControl::Hardware);
    for (const std::int16_t number : {std::int16_t{-1}, std::int16_t{3}, std::int16_t{32767}})
        EXPECT_EQ(FailureOf([&] { ReadFlowControl(number); }), FailureNumber::InvalidCall);
}

TEST(SerialSettings, EveryValueReachesThePort)
{
    constexpr struct
    {
        SerialSettings Values;
        QSerialPort::Parity Parity;
        QSerialPort::DataBits DataBits;
        QSerialPort::StopBits StopBits;
    } Rows[] = {
        {{300, 'n', 8, StopBits::One},
         QSerialPort::NoParity,
         QSerialPort::Data8,
         QSerialPort::OneStop},
        {{1200, 'e', 7, StopBits::Two},
         QSerialPort::EvenParity,
         QSerialPort::Data7,
         QSerialPort::TwoStop},
        {{4800, 'o', 6, StopBits::One},
         QSerialPort::OddParity,
         QSerialPort::Data6,
         QSerialPort::OneStop},
        {{19200, 'm', 5, StopBits::OneAndHalf},
         QSerialPort::MarkParity,
         QSerialPort::Data5,
         QSerialPort::TwoStop},
        {{128000, 's', 8, StopBits::Two},
         QSerialPort::SpaceParity,
         QSerialPort::Data8,
         QSerialPort::TwoStop},
    };
    for (const auto& row : Rows) {
        QSerialPort port;
        EXPECT_TRUE(SetLineValues(port, row.Values));
        EXPECT_EQ(port.baudRate(), row.Values.Speed);
        EXPECT_EQ(port.parity(), row.Parity);
        EXPECT_EQ(port.dataBits(), row.DataBits);
        EXPECT_EQ(port.stopBits(), row.StopBits);
    }
}
