#ifndef RVIZ_PLUGIN_TEST_QT_PRINT_H
#define RVIZ_PLUGIN_TEST_QT_PRINT_H

#include <QString>

#include <ostream>

// Qt strings in test failure messages as text, not bytes.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

#endif
