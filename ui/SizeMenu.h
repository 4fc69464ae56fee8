#pragma once

#include <QObject>

namespace Ui {
class MagicSquare2;
}

namespace quarvelle {

class MainPage;
struct ProgramState;

/// The menu that chooses one of eight sizes. "Larger Size" only shows that a larger one was typed.
class SizeMenu : public QObject {
    Q_OBJECT

public:
    /// Everything outlives the object.
    SizeMenu(ProgramState& state, const Ui::MagicSquare2& window, MainPage& page);

    /// A size item: takes `size` (5, 7, 11, 13, 17, 19, 23 or 29) and writes it into the size box.
    void sizeItem_Click(int size);
    /// Checks the item of the accepted size `x`, "Larger Size" for one that has none, and no other.
    void marksize(int x);

private:
    ProgramState& m_state;
    const Ui::MagicSquare2& m_window;
    MainPage& m_page;
};

} // namespace quarvelle
