# With FOLDERTREE_SANITIZE every native target runs under ASan and UBSan, and the first finding ends the program.
# With FOLDERTREE_FUZZ it tells libFuzzer besides which of its branches an input takes.

if(FOLDERTREE_SANITIZE)
    if(WIN32)
        message(FATAL_ERROR "FOLDERTREE_SANITIZE: the MinGW compilers have no sanitizers; use the native build.")
    endif()
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(FOLDERTREE_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
        message(FATAL_ERROR "FOLDERTREE_FUZZ: only clang has libFuzzer; use the preset fuzz.")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
