// Makes its application object and ends, for the time that a start of the toolkit takes.
#include <QApplication>

int main(int count, char **arguments)
{
    const QApplication application(count, arguments);
    return 0;
}
