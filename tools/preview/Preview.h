#pragma once

#include <QApplication>
#include <QCommandLineParser>

#include <string>

namespace pello {

/// A program that shows a window for looking at it, as its arguments say; every one knows "--dark".
class Preview {
public:
    Preview(int& argc, char** argv, const QList<QCommandLineOption>& options);

    [[nodiscard]] bool has(const char* option) const { return arguments_.isSet(option); }
    [[nodiscard]] std::string text(const char* option) const {
        return arguments_.value(option).toStdString();
    }
    [[nodiscard]] double number(const char* option) const {
        return arguments_.value(option).toDouble();
    }

    /// What stands beside the options; empty when nothing does.
    [[nodiscard]] std::string argument() const {
        return arguments_.positionalArguments().value(0).toStdString();
    }

    /// Shows what was made until it is closed.
    static int run() { return QApplication::exec(); }

private:
    QApplication application_;
    QCommandLineParser arguments_;
};

} // namespace pello
