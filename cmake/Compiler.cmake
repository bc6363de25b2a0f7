# How every source of the project is compiled.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

option(ARDIPHON_WARNINGS_AS_ERRORS "Stop at the first warning" OFF)
option(ARDIPHON_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without the sloppiness the cache refuses every source that uses a precompiled header. It reads
  # what a source includes from what the compiler tells of it, instead of preprocessing it for that,
  # and remembers what it has read, as a precompiled header is 150 MB.
  find_program(ENV_PROGRAM env REQUIRED)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${ENV_PROGRAM} CCACHE_DEPEND=1 CCACHE_INODECACHE=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${CCACHE_PROGRAM})
endif()

# The linker for what is built to be run here alone: it takes a third of the time.
find_program(FAST_LINKER ld.gold)
function(link_fast target)
  if(FAST_LINKER)
    target_link_options(${target} PRIVATE -fuse-ld=gold)
  endif()
endfunction()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
if(ARDIPHON_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
add_compile_definitions(QT_NO_CAST_FROM_BYTEARRAY QT_NO_CONTEXTLESS_CONNECT
                        QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(ARDIPHON_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
else()
  add_compile_options(-fstack-protector-strong)
  add_compile_options($<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  add_link_options(-Wl,-z,relro -Wl,-z,now)
endif()
