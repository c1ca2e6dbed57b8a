import QtQuick
import Perchly.Shelf

/// A test of the shelf's view in a panel like the shell's.
ViewTestCase {
    id: root

    readonly property ShelfView view: root.made as ShelfView
    property Component viewComponent: Component { ShelfView {} }

    /// Creates the collapsed view at that edge.
    function open(edge: string) {
        root.fixture.dock(edge);
        root.make(root.viewComponent, {
            model: root.fixture.model,
            preferences: root.fixture.preferences,
            library: root.fixture.library,
            productivity: root.fixture.productivity,
            extras: root.fixture.extras,
            shell: root.fixture.shell,
            motion: root.fixture.motion,
            appearance: root.fixture.appearance,
            shadowMargin: 26
        });
        root.fit(root.fixture.model.compactWidth, root.fixture.model.compactHeight);
        wait(0);
    }

    /// Sizes the panel as the shell does for a frame of that size.
    function fit(width: real, height: real) {
        const side = root.view.edge !== "top";
        root.view.width = width + (side ? 1 : 2) * root.view.shadowMargin;
        root.view.height = height + (side ? 2 : 1) * root.view.shadowMargin;
    }

    /// Opens the shelf, as the shell does, and waits until it has stopped moving.
    function expand() {
        const side = root.view.edge !== "top";
        const scale = root.fixture.preferences.scale;
        root.fit((side ? 694 : 660) * scale, (side ? 519 : root.fixture.model.compactHeight + 485) * scale);
        root.fixture.setExpanded(true);
        root.settle();
    }

    function settle() {
        tryCompare(root.view.openness, "running", false);
        tryCompare(root.view.sideReveal, "running", false);
        wait(0);
    }

    width: 900
    height: 720
}
