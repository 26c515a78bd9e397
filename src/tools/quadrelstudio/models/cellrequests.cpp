// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "cellrequests.h"

#include "workspace/recordlists.h"

#include <limits>

using namespace QuadrelDocument;

namespace {

EditorRequest plain(EditorRequest::Kind kind)
{
    EditorRequest request;
    request.kind = kind;
    return request;
}

EditorRequest number(CellKind kind, int least, int most)
{
    EditorRequest request = plain(EditorRequest::NumberOrOneOf);
    request.choices = choicesOf(kind);
    request.least = least;
    request.most = most;
    return request;
}

EditorRequest oneOf(CellKind kind)
{
    EditorRequest request = plain(EditorRequest::OneOf);
    request.choices = choicesOf(kind);
    return request;
}

} // namespace

EditorRequest requestOf(CellKind kind, const Contents& contents)
{
    constexpr int leastByte = -128;
    constexpr int mostByte = 127;
    switch (kind) {
    case CellKind::Number:
        return number(kind, 0, Limit::id);
    case CellKind::BaudRate:
        return number(kind, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    case CellKind::DataBits:
    case CellKind::StopBits:
        return number(kind, leastByte, mostByte);
    case CellKind::Inspection:
    case CellKind::LineType:
    case CellKind::Kind:
    case CellKind::Line:
    case CellKind::Level:
    case CellKind::Repeat:
        return oneOf(kind);
    case CellKind::Text:
    case CellKind::MaybeText:
        return plain(EditorRequest::Text);
    case CellKind::Delay:
        return plain(EditorRequest::Delay);
    case CellKind::Bytes:
        return plain(EditorRequest::Bytes);
    case CellKind::EventIds: {
        EditorRequest request = plain(EditorRequest::Events);
        request.names = EventNames(recordsOf<Event>(contents));
        return request;
    }
    case CellKind::Date:
        return plain(EditorRequest::Date);
    case CellKind::MaybeDate:
        return plain(EditorRequest::EndDate);
    case CellKind::Weekdays: {
        EditorRequest request = plain(EditorRequest::Weekdays);
        request.firstWeekday = firstWeekday();
        return request;
    }
    case CellKind::Time:
        return plain(EditorRequest::Time);
    }
    Q_UNREACHABLE();
}
