#pragma once

#include <QString>

// What keeps a statement from exhausting the stack, and the words that cannot be names.
namespace sql {

inline constexpr int maxNesting = 60; // parentheses and selects within one another
inline constexpr int maxDepth = 250;  // operators chained in one expression; SQLite itself allows 1000

bool isKeyword(const QString &word);

[[noreturn]] void refuseDepth();

// Counts one level of nesting for as long as it lives.
class NestingGuard {
public:
    explicit NestingGuard(int *nesting) : level(nesting)
    {
        if (++*level > maxNesting) {
            --*level;
            refuseDepth();
        }
    }
    ~NestingGuard() { --*level; }
    NestingGuard(const NestingGuard &) = delete;
    NestingGuard &operator=(const NestingGuard &) = delete;

private:
    int *level;
};

} // namespace sql
