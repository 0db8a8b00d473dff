#include "story.h"

#include "later.h"
#include "platform.h"
#include "reading.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int shownSteps = 20;
constexpr int spread = 20; // of the samples of one key

QByteArray contentOf(const char *path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

// A timer's tolerance depends on the time within the second.
Story::Story(unsigned seed) : random(seed)
{
    pass(static_cast<int>(1000 - now() % 1000));
    openWindow();
}

QString Story::tell(int stepCount)
{
    for (int i = 0; i < stepCount && fault.isEmpty(); ++i)
        takeStep();
    if (fault.isEmpty())
        checkEnd();
    if (fault.isEmpty())
        return fault;
    return QStringList(steps.mid(qMax(0, steps.size() - shownSteps))).join('\n') + '\n' + fault;
}

int Story::anyKey()
{
    QList<int> codes = probe->keys().values(); // in the order of addresses
    std::sort(codes.begin(), codes.end());
    return codes.at(below(codes.size()));
}

void Story::openWindow()
{
    probe = std::make_unique<KeyMainWindowProbe>();
    known = probe->records();
    ranges.clear();
    timeOuts.clear();
    tapped = 0;
}

void Story::closeWindow()
{
    probe.reset();
    require(contentOf(Platform::flag) == "0", "the driver is told that the program has ended");
    pass(latestTimeOut);
    require(QApplication::topLevelWidgets().isEmpty(), "notices end");
}

void Story::takeStep()
{
    static const struct
    {
        int weight;
        void (Story::*take)();
    } actions[] = {
        { 300, &Story::tapKey },     { 440, &Story::giveSample }, { 120, &Story::giveRelease },
        { 40, &Story::giveInvalid }, { 90, &Story::letTimePass }, { 5, &Story::tapSave },
        { 5, &Story::tapClear },
    };
    released = 0;
    int choice = below(1000);
    for (const auto &action : actions) {
        choice -= action.weight;
        if (choice < 0) {
            (this->*action.take)();
            break;
        }
    }
    checkRecords();
    checkSelections();
}

void Story::tapKey()
{
    tapped = anyKey();
    steps << QString("tap %1").arg(tapped);
    centres[tapped] = { 2 + below(2), below(releaseValue), below(releaseValue),
                        below(releaseValue) };
    if (!known.contains(tapped)) {
        timeOuts.insert(tapped, now() + latestTimeOut);
        if (!probe->pending().contains(tapped))
            ranges.remove(tapped);
    }
    probe->keys().key(tapped)->click();
    handleEvents();
}

void Story::giveSample()
{
    Values values = centres.value(tapped);
    if (oneIn(20) && !known.isEmpty()) { // most likely a collision
        const QStringList record = known.first().split(',');
        for (size_t i = 0; i < values.size(); ++i)
            values[i] = record.at(static_cast<int>(i)).toInt();
    }
    for (size_t i = 1; i < values.size(); ++i)
        values[i] = qBound(0, values[i] + below(spread), releaseValue - 1);
    if (tapped != 0 && !probe->pending().isEmpty())
        ranges[tapped].add(values);
    give(values);
}

void Story::giveRelease()
{
    released = tapped;
    give({ 2 + below(2), releaseValue, releaseValue, releaseValue });
}

void Story::giveInvalid()
{
    Values values{ below(5), below(releaseValue), below(releaseValue), below(releaseValue) };
    values[1 + static_cast<size_t>(below(3))] = oneIn(2) ? releaseValue + below(2) : -1;
    give(values);
}

void Story::give(const Values &values)
{
    const QString payload =
        QString("%1,%2,%3,%4").arg(values[0]).arg(values[1]).arg(values[2]).arg(values[3]);
    steps << "reading " + payload;
    writeReading(payload.toLatin1(), static_cast<Way>(below(wayCount)));
    handleEvents();
}

void Story::letTimePass()
{
    const int duration = oneIn(4) ? latestTimeOut : below(1500);
    steps << QString("%1 ms").arg(duration);
    pass(duration);
}

void Story::tapSave()
{
    steps << "tap save";
    tapped = 0;
    require(endsProgram(probe->saveButton()), "save ends the program");
    closeWindow();
    const QMap<int, QString> saved = known;
    openWindow();
    require(known == saved, "the next start has what was saved");
}

void Story::tapClear()
{
    steps << "tap clear";
    tapped = 0;
    yes = oneIn(2);
    require(endsProgram(probe->clearButton()) == !yes, "No ends the program, and Yes does not");
    if (yes) {
        require(contentOf(Platform::flag) == "11", "the driver is told that all keys are gone");
        require(probe->records().isEmpty() && probe->samples().isEmpty(), "Yes forgets all");
        known.clear();
        return;
    }
    if (QFile::exists(Platform::backup))
        require(contentOf(Platform::configuration) == contentOf(Platform::backup),
                "No brings the backup back");
    closeWindow();
    openWindow();
}

// Runs inside the question, where time passes and the driver goes on.
void Story::answer()
{
    for (int i = below(4); i > 0; --i) {
        if (oneIn(2))
            giveRelease();
        else
            letTimePass();
    }
    QWidget *question = QApplication::activeModalWidget();
    require(question, "clear asks");
    steps << (yes ? "Yes" : "No");
    if (!yes && oneIn(2)) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(question, &escape);
        return;
    }
    for (QPushButton *button : question->findChildren<QPushButton *>()) {
        if (button->text() == steps.last())
            button->click();
    }
}

bool Story::endsProgram(QPushButton *button)
{
    std::unique_ptr<Later> answering;
    std::unique_ptr<Later> giveUp; // only where the loop goes on after the tap
    const Later tap(0, [&] {
        if (button == probe->clearButton())
            answering = std::make_unique<Later>(0, [this] { answer(); });
        button->click();
        giveUp = std::make_unique<Later>(0, [] { QCoreApplication::exit(1); });
    });
    return QApplication::exec() == 0;
}
