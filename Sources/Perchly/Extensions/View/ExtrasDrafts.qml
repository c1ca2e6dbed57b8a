import QtQuick

/// Unsaved text of the sections' fields, kept while their window exists.
QtObject {
    property string query: ""
    property string link: ""
    property string layoutName: ""
    property string groupName: ""
    property string snippet: ""
}
