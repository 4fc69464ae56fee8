#pragma once

#include "tests/support/WindowFixture.h"
#include "widgets/FootLine.h"

namespace quarvelle::testing {

/// A batch is ordered from the main page.
class BatchTest : public WindowFixture {
protected:
    void print(const char* order, int count) {
        type(page().Text2, order);
        type(page().Text1, QString::number(count));
        click(page().Command1);
    }

    QString foot() { return window().foot().isVisible() ? window().foot().currentMessage() : ""; }
};

} // namespace quarvelle::testing
