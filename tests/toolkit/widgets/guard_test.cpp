#include "tests/support/message_box.h"
#include "toolkit/widgets/error_display.h"
#include "toolkit/widgets/guard.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Collects what would be shown.
class GuardTest : public testing::Test {
protected:
    void SetUp() override
    {
        previous = setErrorDisplay([this](QWidget *where, const Exception &error) {
            shown << error.message();
            shownAt = where;
        });
    }
    void TearDown() override { setErrorDisplay(previous); }

    QStringList shown;
    QWidget *shownAt = nullptr;

private:
    ErrorDisplay previous;
};

class Handlers : public QWidget {
public:
    void fails() { throw EConvertError(u"metodas"_s); }
    void takesFlag(bool on) { flag = on; }
    bool flag = false;
};

} // namespace

TEST_F(GuardTest, AnErrorOfAHandlerReachesTheDisplayAndNotQt)
{
    QPushButton button;
    connectGuarded(&button, &QPushButton::clicked, &button, [] { throw EDatabaseError(u"nepavyko"_s); });
    EXPECT_NO_THROW(button.click());
    EXPECT_EQ(shown, QStringList(u"nepavyko"_s));
    EXPECT_EQ(shownAt, &button);
}

TEST_F(GuardTest, MethodsAreConnectedWithAsManyArgumentsAsTheyTake)
{
    QPushButton button;
    button.setCheckable(true);
    Handlers handlers;
    connectGuarded(&button, &QPushButton::clicked, &handlers, &Handlers::fails);
    connectGuarded(&button, &QPushButton::clicked, &handlers, &Handlers::takesFlag);
    button.click();
    EXPECT_EQ(shown, QStringList(u"metodas"_s));
    EXPECT_TRUE(handlers.flag);
}

TEST_F(GuardTest, SignalsThatOnlyQtMayEmitAreGuardedToo)
{
    QTimer timer;
    bool ran = false;
    connectGuarded(&timer, &QTimer::timeout, &timer, [&] { ran = true; });
    QMetaObject::invokeMethod(&timer, "timeout", Qt::DirectConnection);
    EXPECT_TRUE(ran);
}

TEST_F(GuardTest, AnAbortIsSilent)
{
    EXPECT_FALSE(runGuarded(nullptr, [] { throw EAbort(); }));
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(GuardTest, AForeignExceptionIsShownInLithuanian)
{
    EXPECT_FALSE(runGuarded(nullptr, [] { throw std::runtime_error("bad things"); }));
    EXPECT_FALSE(runGuarded(nullptr, [] { throw 5; }));
    EXPECT_FALSE(runGuarded(nullptr, [] { throw std::bad_alloc(); }));
    ASSERT_EQ(shown.size(), 3);
    EXPECT_EQ(shown[0], u"Netikėta programos klaida. Veiksmas neatliktas."_s);
    EXPECT_EQ(shown[1], shown[0]);
    EXPECT_EQ(shown[2], u"Neužtenka atminties. Veiksmas neatliktas."_s);
}

TEST_F(GuardTest, AFailingDisplayDoesNotThrowOn)
{
    const ErrorDisplay inner =
        setErrorDisplay([](QWidget *, const Exception &) { throw EConvertError(u"dar"_s); });
    EXPECT_NO_THROW(runGuarded(nullptr, [] { throw EConvertError(u"pirma"_s); }));
    setErrorDisplay(inner);
}

TEST(ErrorBox, ShowsTheMessageAndTheServersWordsAsDetails)
{
    NextBoxes boxes{QMessageBox::Ok};
    showError(nullptr,
              EDatabaseError(u"Nepavyko <b>įrašyti</b>"_s, u"duplicate key"_s, u"insert into bd_x"_s));
    EXPECT_EQ(boxes.at(0).kind, 81);
    EXPECT_EQ(boxes.at(0).title, u"Klaida"_s);
    EXPECT_EQ(boxes.at(0).text, u"Nepavyko <b>įrašyti</b>"_s);
    EXPECT_TRUE(boxes.at(0).details.contains(u"duplicate key"));
    EXPECT_TRUE(boxes.at(0).details.contains(u"insert into bd_x"));
    EXPECT_TRUE(boxes.at(0).buttons.contains(u"Gerai"_s));
}

TEST(ErrorBox, AnErrorWithoutAServerHasNoDetails)
{
    EXPECT_EQ(errorDetails(EConvertError(u"x"_s)), QString());
    EXPECT_EQ(errorDetails(EDatabaseError(u"x"_s)), QString());
}
