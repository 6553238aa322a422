# The guide shows the examples word for word, so that what a reader copies has been compiled and run.
#   cmake -DDOCS=docs -P scripts/check-guide.cmake
file(READ ${DOCS}/host-guide.md guide)
file(GLOB examples ${DOCS}/examples/*.cpp)
if(NOT examples)
  message(FATAL_ERROR "${DOCS}/examples: no examples")
endif()
foreach(example IN LISTS examples)
  file(READ ${example} code)
  string(FIND "${guide}" "```cpp\n${code}```" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${DOCS}/host-guide.md does not show ${example} as it is")
  endif()
endforeach()
