#pragma once

#include "ShellActions.h"

#include <QStringList>

namespace perchly {

/// Records calls to the shell.
class RecordingShell : public ShellActions {
public:
    void showShelf() override { calls.append(QStringLiteral("showShelf")); }
    void showSettings() override { calls.append(QStringLiteral("showSettings")); }
    void showTools() override { calls.append(QStringLiteral("showTools")); }
    void showMixer() override { calls.append(QStringLiteral("showMixer")); }
    void showSearch() override { calls.append(QStringLiteral("showSearch")); }
    void clearScreen() override { calls.append(QStringLiteral("clearScreen")); }
    void launch(const QString &id) override { calls.append(QStringLiteral("launch ") + id); }
    void showMenu(QPointF, bool byKey) override {
        calls.append(QStringLiteral("showMenu %1").arg(byKey));
    }
    void showEntryMenu(const QString &id, QObject *, QPointF, bool byKey) override {
        calls.append(QStringLiteral("showEntryMenu %1 %2").arg(id).arg(byKey));
    }
    void terminate() override { calls.append(QStringLiteral("terminate")); }
    void toggleKeyboardOpen() override { calls.append(QStringLiteral("toggleKeyboardOpen")); }
    bool takeKeyboard() override {
        calls.append(QStringLiteral("takeKeyboard"));
        return true;
    }
    void returnKeyboard() override { calls.append(QStringLiteral("returnKeyboard")); }
    void resize() override { calls.append(QStringLiteral("resize")); }
    void handlePressed() override { calls.append(QStringLiteral("pressed")); }
    void handleMoved() override { calls.append(QStringLiteral("moved")); }
    void handleReleased() override { calls.append(QStringLiteral("released")); }
    void handleCanceled() override { calls.append(QStringLiteral("canceled")); }

    QStringList calls;
};

} // namespace perchly
