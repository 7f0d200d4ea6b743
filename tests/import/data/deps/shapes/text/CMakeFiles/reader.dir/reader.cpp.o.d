text/CMakeFiles/reader.dir/reader.cpp.o: /tmp/shapes/text/reader.cpp \
 /usr/include/stdc-predef.h /tmp/shapes/text/reader.h \
 /tmp/shapes/base/files.h /tmp/shapes/base/numbers.h
