// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QWidget>

#include <QtTest/QtTest>

/** The control of that class and accessible name; null if there is none or more than one. */
template <typename Control> Control* controlNamed(const QWidget& parent, const QString& name)
{
    Control* found = nullptr;
    for (Control* control : parent.findChildren<Control*>()) {
        if (control->accessibleName() != name)
            continue;
        if (found)
            return nullptr;
        found = control;
    }
    return found;
}

/** The controls that the keyboard can reach but that have no name for a reader of the screen. */
inline QStringList controlsWithoutName(const QWidget& parent)
{
    QStringList classes;
    for (const QWidget* control : parent.findChildren<QWidget*>()) {
        const bool isOwn = !control->objectName().startsWith(QLatin1String("qt_"))
            && control->window() == parent.window();
        if (isOwn && control->focusPolicy() != Qt::NoFocus && !control->focusProxy()
            && control->accessibleName().isEmpty())
            classes.append(QString::fromLatin1(control->metaObject()->className()));
    }
    return classes;
}

/** Shows the window and gives it the keyboard. */
inline bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

/** Types the text: what no key of the test has comes as from an input method. */
inline void typeInto(QWidget* control, const QString& text)
{
    for (const uint character : text.toUcs4()) {
        if (character < 0x80) {
            QTest::keyClick(control, static_cast<char>(character));
            continue;
        }
        QInputMethodEvent event;
        event.setCommitString(QString::fromUcs4(&character, 1));
        QCoreApplication::sendEvent(control, &event);
    }
}
