#include "story.h"

#include "androidtoast.h"
#include "buttonstyles.h"

#include <QApplication>
#include <QPushButton>

void Range::add(const Values &values)
{
    for (size_t i = 0; i < values.size(); ++i) {
        low[i] = qMin(low[i], values[i]);
        high[i] = qMax(high[i], values[i]);
    }
}

bool Range::contains(const QString &record) const
{
    const QStringList fields = record.split(',');
    for (size_t i = 0; i < low.size(); ++i) {
        const int value = fields.value(static_cast<int>(i)).toInt();
        if (value < low[i] || value > high[i])
            return false;
    }
    return fields.size() == static_cast<int>(low.size());
}

void Story::require(bool holds, const QString &what)
{
    if (!holds && fault.isEmpty())
        fault = "Broken: " + what;
}

void Story::checkRecords()
{
    const QMap<int, QString> records = probe->records();
    for (int code : known.keys())
        require(records.contains(code), QString("%1 stays learned").arg(code));
    for (int code : records.keys()) {
        if (records.value(code) == known.value(code))
            continue;
        require(code == released, QString("%1 learns from its own release").arg(code));
        require(ranges.value(code).contains(records.value(code)),
                QString("%1 learns %2 from its own samples").arg(code).arg(records.value(code)));
        ranges.remove(code);
        ++learnings;
    }
    known = records;
}

void Story::checkSelections()
{
    for (int code : timeOuts.uniqueKeys()) {
        for (qint64 time : timeOuts.values(code)) {
            if (time < now())
                timeOuts.remove(code, time);
        }
    }
    for (int code : probe->pending()) {
        require(probe->keys().key(code), QString("%1 is a key").arg(code));
        require(probe->pending().count(code) <= timeOuts.count(code),
                QString("%1 will time out").arg(code));
    }
    for (QPushButton *button : probe->keys().keys()) {
        const int code = probe->keys().value(button);
        require(button->styleSheet() != ButtonStyles::selected || probe->pending().contains(code),
                QString("%1 is blue and waits").arg(code));
    }
}

void Story::checkEnd()
{
    pass(2 * latestTimeOut); // the last time-outs show notices
    checkSelections();
    require(probe->pending().isEmpty(), "no key waits for ever");
    require(!AndroidToast::isShowToast && QApplication::topLevelWidgets().size() == 1,
            "dialogs and notices end");
    closeWindow();
}
