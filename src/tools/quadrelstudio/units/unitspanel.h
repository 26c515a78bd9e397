// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitsearch.h"

#include <QtWidgets/QWidget>

class QLabel;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

/** All units and documents that the user may want, to be opened with a double click or Return. */
class UnitsPanel : public QWidget {
    Q_OBJECT

public:
    enum Column { Name, Model, State, ColumnCount };

    /** Without a search there is no button for it. */
    explicit UnitsPanel(UnitSearch* search, QWidget* parent = nullptr);

    QTreeWidget& tree() { return *m_tree; }
    /** Adds the unit, or what is new of it; an empty text is not known. */
    void addUnit(const UnitAddress& address, const QString& name, const QString& model = {});
    void addDocument(const QString& path);
    void setUnitState(const UnitAddress& address, const QString& state);
    void setDocumentState(const QString& path, const QString& state);
    /** The addresses and paths that are listed, in their order. */
    QStringList units() const { return textsOf(m_units); }
    QStringList documents() const { return textsOf(m_documents); }
    /** Adds the units of a site's inventory; what is wrong with it, a line each. */
    QStringList addInventory(const QString& path);

signals:
    void unitActivated(const UnitAddress& address);
    void documentActivated(const QString& path);
    void addressWanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    void activate(const QTreeWidgetItem* item);
    void takeFound(const QVector<UnitSearch::Found>& units);
    void askForInventory();
    void updateSearch();
    void retranslate();
    static QTreeWidgetItem* find(const QTreeWidgetItem* group, const QString& text);
    static QStringList textsOf(const QTreeWidgetItem* group);

    UnitSearch* m_search;
    int m_foundCount = 0;
    QToolButton* m_searchButton;
    QToolButton* m_addButton;
    QToolButton* m_inventoryButton;
    QLabel* m_searchState;
    QTreeWidget* m_tree;
    QTreeWidgetItem* m_units;
    QTreeWidgetItem* m_documents;
};
