import QtQuick
import QtTest
import Perchly.Tests

/// A test of a view with fake stores and without animations. Any warning fails it.
TestCase {
    id: root

    property ShelfFixture fixture: null
    property Item made: null

    property Component fixtureComponent: Component { ShelfFixture {} }

    function init() {
        failOnWarning(/.?/);
        root.fixture = root.fixtureComponent.createObject(root) as ShelfFixture;
    }

    function make(component: Component, properties: var) {
        root.made = component.createObject(root, properties) as Item;
        verify(root.made !== null);
        wait(0);
    }

    function cleanup() {
        // The stores outlive the view, as in the program.
        root.made?.destroy();
        root.made = null;
        wait(0);
        root.fixture.destroy();
        wait(0);
    }

    function everything(): var {
        return root.fixture.accessibleWithin(root.made);
    }

    function has(thing: string): bool {
        return root.everything().includes(thing);
    }

    function press(name: string) {
        verify(root.fixture.pressAccessible(root.made, name), "no " + name);
    }

    function go(keys: var) {
        keys.forEach(key => keyClick(key));
    }

    function tab(count: int) {
        for (let step = 0; step < count; ++step) {
            keyClick(Qt.Key_Tab);
        }
    }

    function type(text: string) {
        for (const letter of text) {
            keyClick(letter);
        }
    }

    when: windowShown
    visible: true
}
