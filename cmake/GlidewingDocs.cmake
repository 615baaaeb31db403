# Gives the target `docs`: the reference of the engine, from the comments in its headers,
# in docs/html of the build directory. What is public and has no comment is an error.

find_package(Doxygen REQUIRED)
set(DOXYGEN_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/docs)
set(DOXYGEN_PROJECT_BRIEF "the engine's classes")
set(DOXYGEN_PROJECT_NAME Glidewing)
set(DOXYGEN_FILE_PATTERNS *.h README.md)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${CMAKE_CURRENT_SOURCE_DIR}/engine/README.md)
set(DOXYGEN_EXCLUDE ${CMAKE_CURRENT_SOURCE_DIR}/engine/internal)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
# A comment that ends with @{ is for all that follows, up to ///@}.
set(DOXYGEN_DISTRIBUTE_GROUP_DOC YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
# A parameter that its name explains needs no words.
set(DOXYGEN_WARN_IF_INCOMPLETE_DOC NO)
set(DOXYGEN_MACRO_EXPANSION YES)
doxygen_add_docs(docs engine ${CMAKE_CURRENT_BINARY_DIR}/engine/Version.h
    COMMENT "Writing the reference of the engine")
