#include "WidgetShell.h"

#include "ScreenshotMode.h"
#include "frmAskLoad.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QProcess>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QScreen>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <functional>

QString FromFileText(const std::string& text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToFileText(const QString& text) {
    return text.toLatin1().toStdString();
}

QString FromPath(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string ToPath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString ToMenuText(const QString& text) {
    QString escaped = text;
    return escaped.replace('&', "&&");
}

QString ToQtFilter(const std::string& filter) {
    const QStringList parts = FromFileText(filter).split('|');
    // A description that already shows its patterns in brackets has them replaced by the patterns
    // that really apply, so they show once.
    static const QRegularExpression shownPatterns(R"(\s*\([^()]*\)\s*$)");
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i];
        description.remove(shownPatterns);
        QString patterns = parts[i + 1];
        patterns.replace(';', ' ');
        filters << description + " (" + patterns + ")";
    }
    return filters.join(";;");
}

QSize FileDialogSize(const QSize& available) {
    return {std::min(900, available.width() * 4 / 5), std::min(550, available.height() * 4 / 5)};
}

namespace {

QMessageBox::Icon ToQtIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton ToQtButton(Answer answer) {
    switch (answer) {
    case Answer::Ok:
        return QMessageBox::Ok;
    case Answer::Cancel:
        return QMessageBox::Cancel;
    case Answer::Yes:
        return QMessageBox::Yes;
    case Answer::No:
        return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

QMessageBox::StandardButtons ToQtButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok:
        return QMessageBox::Ok;
    case Buttons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

Answer FromQtButton(int button) {
    switch (button) {
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

// Runs the dialog; in screenshot mode it is pictured and answered by answerByDefault.
int RunModal(QDialog& dialog, const std::function<void()>& answerByDefault) {
    AnswerInScreenshotMode(dialog, answerByDefault);
    return dialog.exec();
}

int RunBox(QMessageBox& box) {
    return RunModal(box, [&box] { PressDefaultButton(box); });
}

std::optional<std::string> RunFileDialog(QWidget* owner, const FileDialogOptions& options, bool saving) {
    QFileDialog dialog(owner, FromFileText(options.title), FromPath(options.folder),
                       ToQtFilter(options.filter));
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving || !options.mustExist ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(FromFileText(options.defaultExtension));
    if (!options.confirmOverwrite) dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (!options.fileName.empty()) dialog.selectFile(FromPath(options.fileName));
    if (const QScreen* screen = owner ? owner->screen() : QGuiApplication::primaryScreen())
        dialog.resize(FileDialogSize(screen->availableSize()));
    if (RunModal(dialog, [&dialog] { dialog.reject(); }) != QDialog::Accepted ||
        dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return ToPath(dialog.selectedFiles().constFirst());
}

} // namespace

void WidgetShell::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) {
    QMessageBox box(ToQtIcon(icon), FromFileText(title), FromFileText(text), QMessageBox::Ok, owner_);
    box.setDefaultButton(QMessageBox::Ok);
    RunBox(box);
}

Answer WidgetShell::Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
                        Answer defaultAnswer) {
    QMessageBox box(ToQtIcon(icon), FromFileText(title), FromFileText(text), ToQtButtons(buttons), owner_);
    box.setDefaultButton(ToQtButton(defaultAnswer));
    return FromQtButton(RunBox(box));
}

std::optional<std::string> WidgetShell::ShowOpenDialog(const FileDialogOptions& options) {
    return RunFileDialog(owner_, options, false);
}

std::optional<std::string> WidgetShell::ShowSaveDialog(const FileDialogOptions& options) {
    return RunFileDialog(owner_, options, true);
}

AskResult WidgetShell::AskDialog(AskKind kind) {
    const auto ask = [](cAskDialog& dialog) {
        AnswerInScreenshotMode(dialog, [&dialog] { PressDefaultButton(dialog); });
        return dialog.Run();
    };
    switch (kind) {
    case AskKind::LoadTrackTerrain: {
        frmAskLoadTrackTerrain dialog(owner_);
        return ask(dialog);
    }
    case AskKind::ImportOverwrite: {
        frmAskImportOverwrite dialog(owner_);
        return ask(dialog);
    }
    case AskKind::LoadNoTerrain:
        break;
    }
    frmAskLoadNoTerrain dialog(owner_);
    return ask(dialog);
}

std::optional<ByteColour> WidgetShell::ShowColourDialog(const ByteColour& initial) {
    QColorDialog dialog(QColor(initial.r, initial.g, initial.b), owner_);
    if (RunModal(dialog, [&dialog] { dialog.reject(); }) != QDialog::Accepted) return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    return ByteColour{chosen.red(), chosen.green(), chosen.blue()};
}

bool WidgetShell::StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments)
        list << FromPath(argument);
    return QProcess::startDetached(FromPath(program), list);
}

bool WidgetShell::OpenWithDesktop(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(FromPath(path)));
}

WidgetShell::~WidgetShell() {
    EndProgress();
}

void WidgetShell::BeginProgress(const std::string& caption, int maximum) {
    EndProgress();
    progress_ = new QProgressDialog(FromFileText(caption), "Cancel", 0, maximum, owner_);
    progress_->setObjectName("dlgProgress");
    progress_->setWindowTitle(QCoreApplication::applicationName());
    progress_->setWindowModality(Qt::WindowModal);
    progress_->setMinimumDuration(kProgressDelayMs);
    // Ended by EndProgress, not by reaching the maximum: the work may report its last step early.
    progress_->setAutoClose(false);
    progress_->setAutoReset(false);
    progress_->setValue(0);
}

void WidgetShell::SetProgress(int value) {
    // A modal progress dialog handles pending events here, so Cancel is seen.
    if (progress_) progress_->setValue(value);
}

void WidgetShell::StepProgress() {
    if (progress_) SetProgress(progress_->value() + 1);
}

bool WidgetShell::ProgressCancelled() {
    if (!progress_) return false;
    QCoreApplication::processEvents();
    return progress_ && progress_->wasCanceled();
}

void WidgetShell::EndProgress() {
    if (!progress_) return;
    progress_->close();
    delete progress_;
}
