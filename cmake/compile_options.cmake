# The one place for warnings, hardening, sanitizers and floating-point rules. Every target of ours links
# peakwright_options.
option(PEAKWRIGHT_WERROR "Treat warnings as errors" OFF)
option(PEAKWRIGHT_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_library(peakwright_options INTERFACE)
target_include_directories(peakwright_options INTERFACE ${PROJECT_SOURCE_DIR})
# The report's digits are part of its contract: no fused multiply-add, here for every compiler. What
# a compiler can be asked about its arithmetic, engine/arithmetic.h asks.
target_compile_options(peakwright_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off
  $<$<BOOL:${PEAKWRIGHT_WERROR}>:-Werror>)
# 32-bit x86 otherwise keeps sums wider than their type, and rounds some of them twice.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|x86_64|amd64|AMD64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_options(peakwright_options INTERFACE -msse2 -mfpmath=sse)
endif()
# GCC 12 sees overlapping copies inside std::string that aren't there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(peakwright_options INTERFACE -Wno-restrict)
endif()

# Hardening, where compiler and linker know it: only linkers of ELF files have these -z keywords, and
# only programs for Windows have a control flow guard (of which GCC knows nothing).
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:-z,relro,-z,now PEAKWRIGHT_HAS_RELRO)
# Clang takes what other processors have, and warns that it is of no use.
set(CMAKE_REQUIRED_FLAGS -Werror)
check_cxx_compiler_flag(-fstack-protector-strong PEAKWRIGHT_HAS_STACK_PROTECTOR)
check_cxx_compiler_flag(-mguard=cf PEAKWRIGHT_HAS_CONTROL_FLOW_GUARD)
check_cxx_compiler_flag(-fcf-protection PEAKWRIGHT_HAS_CF_PROTECTION)
check_cxx_compiler_flag(-mbranch-protection=standard PEAKWRIGHT_HAS_BRANCH_PROTECTION)
unset(CMAKE_REQUIRED_FLAGS)
set(hardening
  $<$<BOOL:${PEAKWRIGHT_HAS_STACK_PROTECTOR}>:-fstack-protector-strong>
  $<$<BOOL:${PEAKWRIGHT_HAS_CONTROL_FLOW_GUARD}>:-mguard=cf>)
target_compile_options(peakwright_options INTERFACE ${hardening})
target_link_options(peakwright_options INTERFACE ${hardening})
if(PEAKWRIGHT_HAS_RELRO)
  target_link_options(peakwright_options INTERFACE LINKER:-z,relro,-z,now)
  target_compile_options(peakwright_options INTERFACE
    $<$<BOOL:${PEAKWRIGHT_HAS_CF_PROTECTION}>:-fcf-protection>
    $<$<BOOL:${PEAKWRIGHT_HAS_BRANCH_PROTECTION}>:-mbranch-protection=standard>)
endif()

if(PEAKWRIGHT_SANITIZE)
  set(sanitizers -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
                 -fno-omit-frame-pointer)
  target_compile_options(peakwright_options INTERFACE ${sanitizers})
  target_link_options(peakwright_options INTERFACE ${sanitizers})
endif()
