// Carries the precompiled header with windows.
