#pragma once

#include <QObject>

namespace Ui {
class MagicSquare2;
}

namespace quarvelle {

class MainPage;
struct ProgramState;

/// The menu that chooses one of eight sizes. "Larger Size" only shows that the size typed is above 29.
class SizeMenu : public QObject {
    Q_OBJECT

public:
    /// Everything outlives the object.
    SizeMenu(ProgramState& state, const Ui::MagicSquare2& window, MainPage& page);

    /// The item of `size` (5, 7, 11, 13, 17, 19, 23 or 29) was chosen: makes it the size and writes it into
    /// the size box.
    void sizeItem_Click(int size);
    /// Marks the item of size `x` and no other; "Larger Size" if `x` has none.
    void marksize(int x);

private:
    ProgramState& m_state;
    const Ui::MagicSquare2& m_window;
    MainPage& m_page;
};

} // namespace quarvelle
