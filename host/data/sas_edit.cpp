#include "host/data/sas_edit.h"

#include "host/data/main_datas.h"
#include "toolkit/data/dataset.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/invalid_mark.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyle>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int offeredAtMost = 50;
constexpr int idRole = Qt::UserRole;

bool asksPicker(const QKeyEvent &key)
{
    return key.key() == Qt::Key_F4 ||
           (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
}

// A name longer than its place ends in an ellipsis; the tool tip has it whole.
class TElidedLabel : public QLabel {
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              shown, foregroundRole());
    }
};

} // namespace

TSasEdit::TSasEdit(QWidget *parent)
    : QWidget(parent),
      edit(new QLineEdit),
      button(new QToolButton),
      nameLabel(new TElidedLabel),
      completer(new QCompleter(this)),
      offered(new QStandardItemModel(this))
{
    build();
    setLabel(u"Sąskaita"_s);
    connect(edit, &QLineEdit::textEdited, this, guarded(this, [this](const QString &text) { typed(text); }));
    connect(edit, &QLineEdit::editingFinished, this, guarded(this, [this] { commit(); }));
    connect(button, &QToolButton::clicked, this, &TSasEdit::askPicker);
    connect(completer, qOverload<const QModelIndex &>(&QCompleter::activated), this,
            guarded(this, [this](const QModelIndex &index) { take(index.data(idRole).toDouble()); }));
}

// The edit loses the focus while it is destroyed: nothing may be taken from it any more then.
TSasEdit::~TSasEdit()
{
    edit->disconnect(this);
    edit->removeEventFilter(this);
    commitWith(nullptr);
}

void TSasEdit::commitWith(TDataSet *set)
{
    if (posted)
        posted->removeFlusher(flusher);
    posted = set;
    if (set)
        flusher = set->addFlusher([this] { commit(); });
}

void TSasEdit::build()
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(u'0') * 14);
    edit->installEventFilter(this);
    button->setText(u"…"_s);
    button->setFocusPolicy(Qt::NoFocus);
    nameLabel->setTextFormat(Qt::PlainText);
    nameLabel->setMinimumWidth(0);
    nameLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(edit);
    layout->addWidget(button);
    layout->addWidget(nameLabel, 1);
    completer->setModel(offered);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer->setWidget(edit);
    setFocusProxy(edit);
    setFocusPolicy(Qt::StrongFocus);
}

double TSasEdit::value() const
{
    return id;
}

void TSasEdit::setValue(double newId)
{
    take(newId);
}

QString TSasEdit::GetText() const
{
    return edit->text();
}

QChar TSasEdit::Status() const
{
    return searching ? u'S' : u' ';
}

bool TSasEdit::isReadOnly() const
{
    return edit->isReadOnly();
}

void TSasEdit::setReadOnly(bool on)
{
    edit->setReadOnly(on);
    button->setEnabled(!on);
}

void TSasEdit::setLabel(const QString &label)
{
    QString plain = label;
    plain.remove(u'&');
    setAccessibleName(plain);
    edit->setAccessibleName(plain);
    button->setAccessibleName(u"%1: pasirinkti iš sąskaitų plano"_s.arg(plain));
    button->setToolTip(u"Pasirinkti iš sąskaitų plano (F4)"_s);
}

void TSasEdit::typed(const QString &text)
{
    searching = true;
    mark(false);
    nameLabel->clear();
    offer(text);
    if (OnChange)
        OnChange();
}

const TCodeTree &TSasEdit::chart()
{
    if (!accounts)
        accounts = std::make_unique<TCodeTree>(chartOfAccounts(MainDatas()->mnFin_Db()));
    return *accounts;
}

bool TSasEdit::fits(int row) const
{
    return !onlyDetails || (accounts->at(row).detail && !accounts->isSummary(row));
}

void TSasEdit::offer(const QString &text)
{
    offered->clear();
    if (!text.trimmed().isEmpty()) {
        const QList<int> hits = chart().search(text);
        for (const int row : hits) {
            if (!fits(row))
                continue;
            auto *item = new QStandardItem(chart().label(row));
            item->setData(chart().at(row).id, idRole);
            offered->appendRow(item);
            if (offered->rowCount() == offeredAtMost)
                break;
        }
    }
    if (offered->rowCount() == 0) {
        completer->popup()->hide();
        return;
    }
    const int wanted = completer->popup()->sizeHintForColumn(0) + 40;
    completer->complete(QRect(0, 0, qBound(edit->width(), wanted, 600), edit->height()));
}

// The number is looked up in the database, not in the chart read before: another station may have changed it.
double TSasEdit::accountOf(const QString &text)
{
    const QString wanted = text.trimmed();
    if (const auto account = findAccountByNumber(MainDatas()->mnFin_Db(), wanted))
        return account->id;
    return offered->rowCount() == 1 ? offered->item(0)->data(idRole).toDouble() : 0;
}

void TSasEdit::commit()
{
    if (!searching)
        return;
    const QString text = edit->text();
    const QModelIndexList highlighted = completer->popup()->isVisible()
                                            ? completer->popup()->selectionModel()->selectedIndexes()
                                            : QModelIndexList();
    double found = 0;
    if (!highlighted.isEmpty())
        found = highlighted.first().data(idRole).toDouble();
    else if (!text.trimmed().isEmpty())
        found = accountOf(text);
    take(found);
    if (found == 0 && !text.trimmed().isEmpty()) {
        edit->setText(text);
        mark(true);
    }
}

// The only place where the value changes. The screen may refuse the new value: then everything is as before.
void TSasEdit::take(double newId)
{
    const std::optional<TAccount> account =
        newId > 0 ? findAccount(MainDatas()->mnFin_Db(), newId) : std::nullopt;
    const double before = id;
    const std::optional<TAccount> former =
        before > 0 ? findAccount(MainDatas()->mnFin_Db(), before) : std::nullopt;
    id = account ? account->id : 0;
    searching = false;
    accounts.reset();
    completer->popup()->hide();
    show(account);
    if (id == before)
        return;
    try {
        if (OnChange)
            OnChange();
    } catch (...) {
        id = before;
        show(former);
        throw;
    }
    emit changed();
}

void TSasEdit::show(const std::optional<TAccount> &account)
{
    edit->setText(account ? account->number : QString());
    nameLabel->setText(account ? account->name : QString());
    nameLabel->setToolTip(nameLabel->text());
    mark(false);
}

void TSasEdit::mark(bool isWrong)
{
    wrong.reset(isWrong ? new TInvalidMark(edit) : nullptr);
    edit->setToolTip(isWrong ? u"Tokios sąskaitos nėra"_s : QString());
    edit->setAccessibleDescription(edit->toolTip());
}

void TSasEdit::askPicker()
{
    if (isEnabled() && !isReadOnly())
        emit browse();
}

// The list of offers would keep the focus; the search ends before the edit is left.
void TSasEdit::commitQuietly()
{
    runGuarded(this, [this] { commit(); });
}

bool TSasEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == edit && event->type() == QEvent::KeyPress) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (asksPicker(key)) {
            askPicker();
            return true;
        }
        if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)
            commitQuietly();
    }
    return QWidget::eventFilter(watched, event);
}
