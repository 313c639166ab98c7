#include "app/shared/qt_file_dialogs.h"

#include <QFileDialog>
#include <QRegularExpression>

#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

FileDialogResult Run(QFileDialog& dialog, const FileDialogRequest& request) {
    const QStringList filters = ToolkitFilters(request.Filter);
    dialog.setNameFilters(filters);
    FileDialogResult result;
    if (dialog.exec() != QDialog::Accepted) return result;
    for (const QString& path : dialog.selectedFiles()) result.Paths.push_back(FromQt(path));
    result.FilterIndex =
        std::max(1, static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1);
    return result;
}

}  // namespace

QStringList ToolkitFilters(TextView filter) {
    const QStringList parts = ToQt(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString words = parts[i].left(parts[i].lastIndexOf(u'('));
        QStringList patterns = parts[i + 1].split(u';');
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters.append(words + u'(' + patterns.join(u' ') + u')');
    }
    return filters;
}

QString SuffixOfFilter(const QString& toolkitFilter) {
    static const QRegularExpression onePattern(QStringLiteral(R"(\(\*\.([^\s*?\[\]()]+)\)$)"));
    return onePattern.match(toolkitFilter).captured(1);
}

FileDialogResult QtFileDialogs::OpenFiles(QWidget* parent, const FileDialogRequest& request) {
    QFileDialog dialog(parent, ToQt(request.Title), ToQt(request.InitialFolder));
    dialog.setFileMode(request.Multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    return Run(dialog, request);
}

FileDialogResult QtFileDialogs::SaveFile(QWidget* parent, const FileDialogRequest& request) {
    QFileDialog dialog(parent, ToQt(request.Title), ToQt(request.InitialFolder));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // A name typed without an extension gets that of the chosen filter, or it could not be told
    // later what kind of file it is.
    const auto keepSuffix = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(SuffixOfFilter(filter));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, keepSuffix);
    keepSuffix(ToolkitFilters(request.Filter).value(0));
    return Run(dialog, request);
}

Text QtFileDialogs::BrowseForFolder(QWidget* parent, TextView title, TextView initialFolder) {
    return FromQt(QFileDialog::getExistingDirectory(parent, ToQt(title), ToQt(initialFolder)));
}

}  // namespace mdlPLM
