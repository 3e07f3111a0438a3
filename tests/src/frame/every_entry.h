#pragma once

#include "host/app/host_entries.h"
#include "host/data/main_datas.h"
#include "src/frame/registry.h"
#include "tests/src/frame/demo_copy.h"
#include "tests/support/engines.h"

#include <optional>
#include <tuple>

// Everything that the program can open.
inline const TPackageEntries &allEntries()
{
    static const TPackageEntries entries = withHostEntries(packageEntries());
    return entries;
}

// One test for each entry of the program on each engine, on the demonstration books. Tests that only look
// share the books; those that write take a copy of their own (books()).
using TEntryOnEngine = std::tuple<Engine, QString>;

class OnEveryEntry : public testing::TestWithParam<TEntryOnEngine> {
protected:
    void SetUp() override
    {
        setMainDatas(std::make_unique<TMainDatas>(books().fin, books().ravl));
        MainDatas()->Open();
        CurrentUser() = {.id = 1, .workPlaces = 0xFFFF, .userAdmin = true};
        GetPeriod();
    }
    void TearDown() override
    {
        setMainDatas(nullptr);
        CurrentUser() = {};
    }

    virtual const TDemoCopy &books() { return TDemoCopy::shared(engine()); }

    Engine engine() const { return std::get<Engine>(GetParam()); }
    const TPackageEntry &entry() const
    {
        return *std::ranges::find(allEntries(), std::get<QString>(GetParam()), &TPackageEntry::name);
    }
};

inline QStringList entryNames(std::optional<TPackageEntry::Kind> kind = {})
{
    QStringList names;
    for (const TPackageEntry &entry : allEntries())
        if (entry.kind == kind.value_or(entry.kind))
            names << entry.name;
    return names;
}

inline std::string entryAndEngine(const testing::TestParamInfo<TEntryOnEngine> &each)
{
    return (std::get<QString>(each.param) + "_" + engineName(std::get<Engine>(each.param))).toStdString();
}

#define ON_EVERY_ENTRY(Fixture)                                                                              \
    INSTANTIATE_TEST_SUITE_P(, Fixture,                                                                      \
                             testing::Combine(testing::Values(Engine::Sqlite, Engine::PostgreSql),           \
                                              testing::ValuesIn(entryNames())),                              \
                             entryAndEngine)
