import QtQuick

/// What was typed into the sections' fields, for as long as their window lives.
QtObject {
    property string query: ""
    property string link: ""
    property string layoutName: ""
    property string groupName: ""
    property string snippet: ""
}
