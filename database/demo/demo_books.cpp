#include "database/demo/demo_books.h"

using namespace Qt::StringLiterals;

QString amountText(qint64 cents)
{
    return u"%1.%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QLatin1Char('0'));
}

QString TDemoBooks::account(const QString &number) const
{
    Q_ASSERT_X(accounts.contains(number), "TDemoBooks::account", qPrintable(number));
    return QString::number(accounts.value(number));
}

QString TDemoBooks::personName()
{
    static const TTableText names = TTableText::read(u"demo/vardai"_s);
    static const TTableText surnames = TTableText::read(u"demo/pavardes"_s);
    const int sex = random.below(2);
    const QString name = random.anyOf(names.rows).at(sex);
    return name + u' ' + random.anyOf(surnames.rows).at(sex);
}

QString TDemoBooks::personCode()
{
    QString code = u"9%1%2%3%4"_s.arg(random.between(60, 99))
                       .arg(random.between(1, 12), 2, 10, QLatin1Char('0'))
                       .arg(random.between(1, 28), 2, 10, QLatin1Char('0'))
                       .arg(random.below(1000), 3, 10, QLatin1Char('0'));
    const auto weighed = [&code](int firstWeight) {
        int sum = 0;
        for (int i = 0; i < code.size(); ++i)
            sum += code.at(i).digitValue() * ((firstWeight - 1 + i) % 9 + 1);
        return sum % 11;
    };
    const int check = weighed(1) < 10 ? weighed(1) : weighed(3) % 10;
    return code + QString::number(check);
}
