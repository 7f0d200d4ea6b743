base/CMakeFiles/numbers.dir/numbers.cpp.o: /tmp/shapes/base/numbers.cpp \
 /usr/include/stdc-predef.h /tmp/shapes/base/numbers.h
