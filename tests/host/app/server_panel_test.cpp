#include "host/app/server_panel.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// What the status bar says of the way to the server.

namespace {

class ServerPanel : public testing::Test {
protected:
    QString told() const { return panel.findChild<QLabel *>(u"engine"_s)->text(); }
    bool warns() const { return panel.findChild<QLabel *>(u"engineWarning"_s)->isVisibleTo(&panel); }

    TServerPanel panel{nullptr};
};

} // namespace

TEST_F(ServerPanel, NobodyReadsAlongOnThisMachine)
{
    panel.showLink({.server = u"localhost"_s, .onThisMachine = true});
    EXPECT_EQ(told(), u"Duomenų bazės serveris šiame kompiuteryje"_s);
    EXPECT_FALSE(warns());
    EXPECT_EQ(panel.toolTip(), QString());
}

TEST_F(ServerPanel, AnEncryptedWayNamesServerAndEncryption)
{
    panel.showLink({.server = u"db1"_s, .encryption = u"TLSv1.3"_s});
    EXPECT_EQ(told(), u"Duomenų bazės serveris db1, ryšys šifruotas (TLSv1.3)"_s);
    EXPECT_FALSE(warns());
    EXPECT_EQ(panel.toolTip(), QString());
}

TEST_F(ServerPanel, AWayThatOthersCanReadIsWarnedOf)
{
    panel.showLink({.server = u"db1"_s});
    EXPECT_EQ(told(), u"Duomenų bazės serveris db1, ryšys nešifruotas!"_s);
    EXPECT_TRUE(warns());
    EXPECT_TRUE(panel.toolTip().startsWith(u"Kreipkitės į serverio prižiūrėtoją"_s));
    EXPECT_TRUE(panel.findChild<QLabel *>(u"engine"_s)->accessibleDescription().contains(u"perskaityta"_s));
}
