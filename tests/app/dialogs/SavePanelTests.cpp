#include "app/dialogs/QtDialogs.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/PageTesting.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

/// Types names into the panel, one each time it asks, and answers the question whether to replace a file;
/// cancels when it has no more names.
class Person final : public QObject {
public:
    Person(const TemporaryFolder& folder, QStringList names, bool replaces)
        : m_folder(QString::fromStdString(folder.path().string())),
          m_names(std::move(names)),
          m_replaces(replaces) {
        m_look.callOnTimeout(this, &Person::look);
        m_look.start(5);
    }
    QStringList questions;

private:
    void look() {
        QWidget* shown = QApplication::activeModalWidget();
        if (auto* panel = qobject_cast<QFileDialog*>(shown)) {
            if (m_names.isEmpty()) return panel->reject();
            panel->findChild<QLineEdit*>()->setText(m_folder + '/' + m_names.takeFirst());
            // What the panel's own button does.
            QMetaObject::invokeMethod(panel, "accept");
        } else if (auto* box = qobject_cast<QMessageBox*>(shown)) {
            questions << box->text();
            for (QAbstractButton* button : box->buttons())
                if ((box->buttonRole(button) == QMessageBox::AcceptRole) == m_replaces)
                    return button->click();
        }
    }

    QString m_folder;
    QStringList m_names;
    bool m_replaces;
    QTimer m_look;
};

} // namespace

TEST(SavePanel, aNameEndsInItsExtensionAndTheQuestionIsForThatName) {
    using enum Dialogs::FileKind;
    struct Row {
        Dialogs::FileKind kind;
        QStringList typed;
        bool replaces;
        const char* chosen; ///< empty: nothing
        const char* question;
    };
    const Row rows[] = {
        {json, {"Mac 14.2"}, false, "Mac 14.2.json", ""},
        {json, {"a.json"}, false, "a.json", ""},
        {json, {"a.JSON"}, false, "a.JSON.json", ""},
        {json, {".json"}, false, ".json.json", ""},
        {json, {"a.pdf"}, false, "a.pdf.json", ""},
        {pdf, {"Mac 14.2"}, false, "Mac 14.2.pdf", ""},
        {pdf, {"a.PDF"}, false, "a.PDF", ""},
        {json, {"kept"}, true, "kept.json", "“kept.json” already exists. Do you want to replace it?"},
        {json, {"kept"}, false, "", "“kept.json” already exists. Do you want to replace it?"},
        {json,
         {"kept.json", "other"},
         false,
         "other.json",
         "“kept.json” already exists. Do you want to replace it?"},
        {pdf, {"kept.json"}, false, "kept.json.pdf", ""},
        {pdf, {"link"}, false, "", "“link.pdf” already exists. Do you want to replace it?"},
        {json, {}, true, "", ""},
    };
    const TemporaryFolder folder;
    folder.write("kept.json", "a report");
    folder.write("Mac 14", "");
    std::filesystem::create_symlink(folder / "gone", folder / "link.pdf");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.typed.join(", ").toStdString());
        const Person person(folder, row.typed, row.replaces);
        const auto file = QtDialogs().savePath(nullptr, row.kind, "Condition Report.json");
        EXPECT_EQ(file, *row.chosen ? std::optional(folder / row.chosen) : std::nullopt);
        EXPECT_EQ(person.questions.join('\n'), row.question);
    }
    EXPECT_EQ(bytesOf(folder / "kept.json"), "a report");
}

TEST(OpenPanel, isTheSystemsOwnWhereItHasOne) {
    ManualScheduler clock;
    SimulatedPlatform mac({}, clock);
    SimulatedControls controls(mac);
    QtDialogs dialogs(&mac.desktop());
    const TemporaryFolder folder;
    folder.write("report.json", "");
    const Person person(folder, {}, true); // cancels Qt's panel
    EXPECT_TRUE(dialogs.openReportFiles(nullptr, "Choose").empty());
    const std::vector<std::filesystem::path> files{folder / "report.json", folder / "other.json"};
    controls.chooseFiles(files);
    EXPECT_EQ(dialogs.openReportFiles(nullptr, "Choose"), files);
    controls.chooseFiles({{}});
    EXPECT_TRUE(dialogs.openReportFiles(nullptr, "Choose").empty()) << "cancelled there";
}
