include(header_library)
header_library(tomlplusplus::tomlplusplus toml++)
set(tomlplusplus_FOUND TRUE)
