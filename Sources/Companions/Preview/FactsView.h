#pragma once

#include "FileFacts.h"

#include <QWidget>

namespace perchly {

/// The view of a file without a preview: its icon, name, kind and size.
class FactsView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    void show(const FileFacts &facts);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    FileFacts m_facts;
};

} // namespace perchly
