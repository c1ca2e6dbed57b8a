import QtQuick

/// What was typed into the panels' fields, for as long as their window lives.
QtObject {
    property string query: ""
    property string groupName: ""
    property string snippet: ""
}
