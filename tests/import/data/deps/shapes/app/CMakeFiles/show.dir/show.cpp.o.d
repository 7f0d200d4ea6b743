app/CMakeFiles/show.dir/show.cpp.o: /tmp/shapes/app/show.cpp \
 /usr/include/stdc-predef.h /tmp/shapes/draw/svg.h \
 /tmp/shapes/draw/shapes.h /tmp/shapes/base/numbers.h \
 /tmp/shapes/text/reader.h /tmp/shapes/base/files.h
