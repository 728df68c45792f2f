include(header_library)
header_library(CLI11::CLI11 CLI)
set(CLI11_FOUND TRUE)
