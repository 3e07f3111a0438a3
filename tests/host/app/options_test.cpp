#include "host/app/options.h"

#include <gtest/gtest.h>

#include <QDir>

namespace {

TOptions read(const QStringList &arguments)
{
    return readOptions(QStringList{"velmora-host"} + arguments);
}

QString refusal(const QStringList &arguments)
{
    try {
        read(arguments);
    } catch (const EUsage &error) {
        return error.message();
    }
    return {};
}

} // namespace

TEST(Options, AreReadInEitherForm)
{
    const TOptions options = read({"--data=knygos", "--user", "ona", "--open", "TSasLikFrm"});
    EXPECT_EQ(options.data, QDir("knygos").absolutePath());
    EXPECT_EQ(options.user, "ona");
    EXPECT_EQ(options.open, "TSasLikFrm");
    EXPECT_EQ(options.server, "");
    EXPECT_EQ(options.told, "");
}

TEST(Options, WhatIsNotUnderstoodIsToldInLithuanian)
{
    EXPECT_EQ(refusal({"--datos", "x"}), "Nežinoma parinktis „datos“.");
    EXPECT_EQ(refusal({"--user"}), "Parinkčiai „--user“ trūksta reikšmės.");
    EXPECT_EQ(refusal({"knygos"}), "Nereikalingas žodis „knygos“.");
    EXPECT_EQ(refusal({"--help=x"}), "Parinktims --help ir --version reikšmės nereikia.");
}

TEST(Options, TheHelpNamesEveryOption)
{
    const QString help = read({"-h"}).told;
    for (const char *option : {"--data", "--server", "--user", "--open", "--tour", "--version"})
        EXPECT_TRUE(help.contains(option)) << option;
    EXPECT_FALSE(help.contains("Options"));
}
