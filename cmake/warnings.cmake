# One target that every target of ours links: language level, warnings, tool-chain flags.
add_library(scourwell_flags INTERFACE)
target_compile_features(scourwell_flags INTERFACE cxx_std_20)
target_include_directories(scourwell_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(scourwell_flags INTERFACE
  -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wimplicit-fallthrough -Werror)
# GCC 12 warns of overlapping copies inside its own std::string when it optimises.
target_compile_options(scourwell_flags INTERFACE -Wno-restrict)
if(WIN32)
  # The oldest targets: ANSI calls, Windows 95 headers, no instruction newer than a 486.
  target_compile_definitions(scourwell_flags INTERFACE
    _WIN32_WINNT=0x0400 WINVER=0x0400 _WIN32_IE=0x0500 PSAPI_VERSION=1
    WIN32_LEAN_AND_MEAN NOMINMAX STRICT)
  target_compile_options(scourwell_flags INTERFACE
    -march=i486 -mtune=generic -ffunction-sections -fdata-sections)
  # The same sources give the same program: without the time of the day.
  target_link_options(scourwell_flags INTERFACE
    -static -s -Wl,--gc-sections -Wl,--no-insert-timestamp)
elseif(SCOURWELL_SANITIZE)
  target_compile_options(scourwell_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(scourwell_flags INTERFACE -fsanitize=address,undefined)
endif()
