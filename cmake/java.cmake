# Java is found when a conversion first asks for it, at run time. The build needs the headers of its
# native interface to call it and a compiler for the class it calls; without them the library has no
# Java machine.
find_package(JNI QUIET)
find_package(Java 11 QUIET COMPONENTS Development)
set(IOCV_JAVA OFF)
if(JAVA_INCLUDE_PATH AND JAVA_INCLUDE_PATH2 AND Java_JAVAC_EXECUTABLE AND Java_JAR_EXECUTABLE)
  set(IOCV_JAVA ON)
  add_library(iocv_jni INTERFACE)
  target_include_directories(iocv_jni SYSTEM INTERFACE
    ${JAVA_INCLUDE_PATH} ${JAVA_INCLUDE_PATH2})
endif()
message(STATUS "Java for year-first dates: ${IOCV_JAVA}")
