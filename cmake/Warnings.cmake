# One interface target carries the warning and sanitizer flags for every target of the project.
add_library(lw_warnings INTERFACE)
target_compile_options(lw_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion)
if(LW_WERROR)
  target_compile_options(lw_warnings INTERFACE -Werror)
endif()
if(LW_SANITIZE)
  target_compile_options(lw_warnings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                               -fno-omit-frame-pointer)
  target_link_options(lw_warnings INTERFACE -fsanitize=address,undefined)
endif()
if(LW_FUZZ)
  # Coverage instrumentation for libFuzzer on every target; the fuzz executables link the fuzzer main.
  target_compile_options(lw_warnings INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                               -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(lw_warnings INTERFACE -fsanitize=address,undefined)
endif()
