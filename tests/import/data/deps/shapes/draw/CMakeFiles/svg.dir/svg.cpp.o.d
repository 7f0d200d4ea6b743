draw/CMakeFiles/svg.dir/svg.cpp.o: /tmp/shapes/draw/svg.cpp \
 /usr/include/stdc-predef.h /tmp/shapes/draw/svg.h \
 /tmp/shapes/draw/shapes.h /tmp/shapes/base/numbers.h \
 /tmp/shapes/base/files.h
