#pragma once

#include <span>

// A text of Qt and its Lithuanian words, both in UTF-8.
struct TLithuanianWord {
    const char *english;
    const char *lithuanian;
};

std::span<const TLithuanianWord> lithuanianWords();
