# Headers that the project does not own, read once for all sources of a target. Only a way to build faster: every source still
# includes what it uses, and builds without.
option(VELLUTO_PRECOMPILE "Precompile the standard library's, Qt's and GoogleTest's headers" OFF)

set(velluto_standard_headers <algorithm> <array> <chrono> <cstdint> <functional> <limits> <map> <memory> <optional> <span> <string>
    <string_view> <utility> <vector>)
set(velluto_test_headers ${velluto_standard_headers} <deque> <filesystem> <fstream> <random> <set> <sstream> <gmock/gmock.h> <gtest/gtest.h>)
set(velluto_qt_headers ${velluto_standard_headers} <QtCore/QtCore> <QtGui/QtGui> <QtWidgets/QtWidgets>)

# velluto_precompile(TARGET HEADER...) reads the headers for the target; velluto_precompile(TARGET FROM OTHER) takes what another
# target of the same options has read.
function(velluto_precompile target)
    if(NOT VELLUTO_PRECOMPILE)
        return()
    endif()
    if(ARGV1 STREQUAL "FROM")
        target_precompile_headers(${target} REUSE_FROM ${ARGV2})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()
