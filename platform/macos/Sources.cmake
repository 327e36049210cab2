# The sources of the macOS backend, from this folder. They are built on a Mac, and read by
# `macos-check` everywhere.
set(talmo_macos_sources
)

# Translations that need nothing of the system, and are tested on every system.
set(talmo_macos_translation_sources
)
