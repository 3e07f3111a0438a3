// Carries the precompiled header without windows.
