#pragma once

class TDatabase;

// Which of the host's two sessions a screen reads.
enum class TSession { Main, Budget };

// The open session. Asserts that the books are open.
TDatabase *sessionOf(TSession session);
