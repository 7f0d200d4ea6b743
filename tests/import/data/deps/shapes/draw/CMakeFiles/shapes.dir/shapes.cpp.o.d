draw/CMakeFiles/shapes.dir/shapes.cpp.o: /tmp/shapes/draw/shapes.cpp \
 /usr/include/stdc-predef.h /tmp/shapes/draw/shapes.h \
 /tmp/shapes/base/numbers.h
