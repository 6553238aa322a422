#include "text/EditableXmlBuffer.h"

using Core::String;

String EditableXmlBuffer::pathUpTo(int position, int root) const {
    String path;
    String name;
    while (position >= 0) {
        position = getCurrentElementNameAndPos(position, name);
        path = L"/" + name + path;
        if (name == rootElementName_ || position == root)
            break;
    }
    return path;
}

String EditableXmlBuffer::getPathForPosition(int position) const {
    return pathUpTo(position, -1);
}

String EditableXmlBuffer::getElementPath(int position) const {
    return pathUpTo(position, getRootElementPos());
}

int EditableXmlBuffer::getElementPositionFromPath(const String& path, int position) const {
    if (path.empty())
        return getCurrentElementPosition(position);
    if (path == L"/" + rootElementName_)
        return getRootElementPos();
    String reached = getElementPath(position);
    int slash = reached.rFind(L'/');
    while (reached != path && slash >= 0) {
        reached = slash > 0 ? reached.subString(0, static_cast<unsigned>(slash - 1)) : String();
        position = getCurrentElementPosition(position);
        slash = reached.rFind(L'/');
    }
    return getCurrentElementPosition(position);
}

String EditableXmlBuffer::getPathToParent(const String& path, const String& parentName) const {
    const int found =
        parentName.empty() ? -1 : path.rFind(parentName, static_cast<unsigned>(path.length()));
    return found < 0 ? path
                     : path.subString(0, static_cast<unsigned>(found + parentName.length() - 1));
}
