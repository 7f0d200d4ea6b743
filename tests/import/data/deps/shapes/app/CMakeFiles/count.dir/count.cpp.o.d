app/CMakeFiles/count.dir/count.cpp.o: /tmp/shapes/app/count.cpp \
 /usr/include/stdc-predef.h /tmp/shapes/text/reader.h \
 /tmp/shapes/base/files.h /tmp/shapes/base/numbers.h
