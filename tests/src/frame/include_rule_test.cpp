// The arrows between the parts of the house, read off the includes: none runs up.

#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>

namespace {

// What a folder may include of the tree.
const QMap<QString, QStringList> arrows = {
    {"toolkit/text", {"toolkit/text"}},
    {"toolkit/sql", {"toolkit/text", "toolkit/sql"}},
    {"toolkit/data", {"toolkit/text", "toolkit/sql", "toolkit/data"}},
    {"toolkit/export", {"toolkit/text", "toolkit/data", "toolkit/export"}},
    {"toolkit/postgresql", {"toolkit/text", "toolkit/sql", "toolkit/data", "toolkit/postgresql"}},
    {"toolkit/widgets", {"toolkit/text", "toolkit/sql", "toolkit/data", "toolkit/widgets"}},
    {"toolkit/report", {"toolkit/"}},
    {"database", {"toolkit/text", "toolkit/sql", "toolkit/data", "toolkit/export", "database"}},
    {"host/common", {"toolkit/", "host/common"}},
    {"host/data", {"toolkit/", "database/", "host/common", "host/data"}},
    {"host/accounts", {"toolkit/", "host/common", "host/data", "host/accounts"}},
    {"host/controls", {"toolkit/", "host/common", "host/data", "host/controls"}},
    {"host/classifier", {"toolkit/", "host/common", "host/data", "host/controls", "host/classifier"}},
    {"host/app", {"toolkit/", "database/", "host/"}},
    {"src", {"toolkit/", "src/"}},
};
// The two doors of the package: what it takes from the host, and what it shows to it.
const QStringList doors = {"src/frame/host_services.h -> host/",
                           "src/frame/Velmora.h -> host/common/package.h",
                           "src/frame/registry.h -> host/common/package.h"};

const QStringList windowless = {"toolkit/text",   "toolkit/sql",        "toolkit/data",
                                "toolkit/export", "toolkit/postgresql", "database"};

struct TSource {
    QString path; // from the root of the sources
    QString text;
};

QList<TSource> sourcesOf(const QString &folder)
{
    QList<TSource> sources;
    const QString root = sourceFolder() + "/";
    QDirIterator files(root + folder, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        sources.append({file.mid(root.size()), QString::fromUtf8(contentOf(file))});
    }
    return sources;
}

QStringList found(const QString &pattern, const QString &text)
{
    QStringList all;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        all << matches.next().captured(1);
    return all;
}

bool startsWithAny(const QString &text, const QStringList &starts)
{
    return std::ranges::any_of(starts, [&](const QString &start) { return text.startsWith(start); });
}

// The unit that a file belongs to: pieces of one unit carry its name before an underscore.
QString unitOf(const QString &path)
{
    return path.section('/', -1).section('.', 0, 0).section('_', 0, 0);
}

// The classes of the screens: those that the header of a unit declares, and where.
QMap<QString, QString> screenClasses(const QList<TSource> &sources)
{
    QMap<QString, QString> classes;
    for (const TSource &source : sources)
        if (source.path.endsWith(".h") && source.text.contains("extern TUnit unit;"))
            for (const QString &name : found("^class (T\\w+) : public", source.text))
                classes.insert(name, source.path);
    return classes;
}

class Arrows : public testing::TestWithParam<QString> {};
INSTANTIATE_TEST_SUITE_P(, Arrows, testing::ValuesIn(arrows.keys()),
                         [](const testing::TestParamInfo<QString> &folder) {
                             return QString(folder.param).replace('/', '_').toStdString();
                         });

// The registry and its parts.
bool isRegistry(const TSource &source)
{
    static const QRegularExpression file("^src/frame/(registry|\\w+_entries)\\.cpp$");
    return source.path.contains(file);
}

} // namespace

TEST_P(Arrows, RunDown)
{
    const QList<TSource> sources = sourcesOf(GetParam());
    EXPECT_FALSE(sources.isEmpty());
    for (const TSource &source : sources)
        for (const QString &included : found("^#include \"([^\"]+/[^\"]+)\"", source.text)) {
            const QString arrow = source.path + " -> " + included;
            EXPECT_TRUE(startsWithAny(included, arrows[GetParam()]) || startsWithAny(arrow, doors))
                << qPrintable(arrow);
        }
}

TEST(Tree, HasArrowsForEveryFolder)
{
    for (const char *top : {"toolkit", "host"})
        for (const QString &folder :
             QDir(sourceFolder() + "/" + top).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            EXPECT_TRUE(arrows.contains(QString(top) + "/" + folder)) << top << qPrintable(folder);
}

TEST(Tree, KeepsWindowsOutOfTheLayersWithoutThem)
{
    for (const QString &folder : windowless) {
        const QString links = QString::fromUtf8(contentOf(sourceFolder() + "/" + folder + "/CMakeLists.txt"));
        EXPECT_FALSE(found("velmora_library\\([^)]*(GUI|toolkit_widgets)", links).size())
            << qPrintable(folder);
        for (const TSource &source : sourcesOf(folder))
            EXPECT_EQ(
                found("^#include <(Q(?:Widget|Dialog|MessageBox|Application|GuiApplication|Action|Icon|Label|"
                      "Painter|Color|Font|Window|Event|KeyEvent|TableView))>",
                      source.text),
                QStringList())
                << qPrintable(source.path);
    }
}

// A screen opens another one through its entry function; its class is its own business.
TEST(Tree, LeadsToAnotherScreenOnlyThroughItsEntryFunction)
{
    const QList<TSource> sources = sourcesOf("src");
    const QMap<QString, QString> classes = screenClasses(sources);
    EXPECT_GE(classes.size(), 10);
    for (const TSource &source : sources)
        for (auto screen = classes.cbegin(); screen != classes.cend(); ++screen) {
            if (isRegistry(source) || unitOf(source.path) == unitOf(screen.value()))
                continue;
            const QRegularExpression use("(?<![\"\\w])" + screen.key() + "\\b(?!\")");
            EXPECT_FALSE(source.text.contains(use)) << qPrintable(source.path + " uses " + screen.key());
        }
}

// A file of the package is a unit, a piece of one, or included by one.
TEST(Tree, LeavesNoFileOfThePackageAlone)
{
    const QList<TSource> sources = sourcesOf("src");
    QStringList included;
    for (const TSource &source : sources)
        for (const QString &file : found("^#include \"(src/[^\"]+)\"", source.text))
            if (file.section('.', 0, 0) != source.path.section('.', 0, 0))
                included << file.section('.', 0, 0);
    for (const TSource &source : sources) {
        const QString stem = source.path.section('.', 0, 0);
        const bool ofAUnit = std::ranges::any_of(sources, [&](const TSource &other) {
            return other.text.contains("\nTUnit unit(") && unitOf(other.path) == unitOf(source.path);
        });
        // A class in several files: its header's name, "_" and what this one is about.
        const bool ofAHeader = std::ranges::any_of(
            included, [&](const QString &header) { return stem.startsWith(header + "_"); });
        EXPECT_TRUE(ofAUnit || isRegistry(source) || included.contains(stem) || ofAHeader)
            << qPrintable(source.path);
    }
}
