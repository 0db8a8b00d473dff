#pragma once

#include <QJsonObject>
#include <QMap>
#include <QSize>
#include <QString>
#include <QVector>
#include <QWidget>

struct Catalogue;
struct Reading;
class CustomMsgBox;
class QFileSystemWatcher;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

// The learning window. A tapped key waits for its readings as long as its code is in
// clickAndValidKeys. A reading belongs to the button that was tapped last.
class KeyMainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit KeyMainWindow(QWidget *parent);
    ~KeyMainWindow() override;

    // Tell the driver what the program is doing. If the flag file is missing, it is not created.
    void writeLearnFlag(bool on);
    void writeClearFlag();

    void insertSampleKeys(int &index, QString &sample); // ignores a sample that is already stored
    bool isChuanKey(QString &sample); // returns true if the sample is like a learned key
    int insertSwcKeys(); // learns a key from the samples; returns -1 if there are none, else 0
    bool isKeyLearned(int code);
    void initSampleKeys(); // forgets the samples
    void initSwcKeys(); // forgets the learned keys

    int loadSwcKeys(); // returns the number of keys, or -1 if there is no configuration file
    void setDirectionRoad(QJsonObject configuration, QMap<int, QString> &learnedKeys,
                          QString group); // adds the keys of a group to the learned keys
    QMap<int, int> insertSwcKey1Flag(); // returns the channel of key line 2, see selectChannel()
    QMap<int, int> insertSwcKey2Flag(); // returns the channel of key line 3
    void saveSwcKeys();
    void backupDirection(); // does nothing if there is a backup

    // Handles a time-out: if the key still waits, its button turns gray and one wait ends.
    void recorrectBtnStatus(int code);

public slots:
    void onFileChange(QString path);

private slots:
    void onTouchKeysClicked();

    // Timers pass no argument, so each key has its own time-out slot.
    void recorrectHomeBtnStatus() { recorrectBtnStatus(314); }
    void recorrectBackBtnStatus() { recorrectBtnStatus(250); }
    void recorrectPowerBtnStatus() { recorrectBtnStatus(148); }
    void recorrectMuteBtnStatus() { recorrectBtnStatus(149); }
    void recorrectVolPlusBtnStatus() { recorrectBtnStatus(166); }
    void recorrectVolSubtractBtnStatus() { recorrectBtnStatus(167); }
    void recorrectPrevBtnStatus() { recorrectBtnStatus(232); }
    void recorrectNextBtnStatus() { recorrectBtnStatus(233); }
    void recorrectSrcBtnStatus() { recorrectBtnStatus(315); }
    void recorrectEnterBtnStatus() { recorrectBtnStatus(157); }
    void recorrectBluetoothBtnStatus() { recorrectBtnStatus(347); }
    void recorrectHangUpBtnStatus() { recorrectBtnStatus(351); }
    void recorrectIlinkBtnStatus() { recorrectBtnStatus(325); }
    void recorrectSiriBtnStatus() { recorrectBtnStatus(344); }
    void recorrectMusicBtnStatus() { recorrectBtnStatus(302); }
    void recorrectRadioBtnStatus() { recorrectBtnStatus(226); }
    void recorrectLeftBtnStatus() { recorrectBtnStatus(155); }
    void recorrectRightBtnStatus() { recorrectBtnStatus(156); }
    void recorrectUpBtnStatus() { recorrectBtnStatus(153); }
    void recorrectDownBtnStatus() { recorrectBtnStatus(154); }
    void recorrectAmsBtnStatus() { recorrectBtnStatus(326); }
    void recorrectPlayPauseBtnStatus() { recorrectBtnStatus(247); }

private:
    friend class LearningWindow; // for the tests

    void buildScreen(const Catalogue &catalogue, const QSize &screen);
    QLabel *createText(const QString &text, const char *style, Qt::Alignment alignment);
    QLabel *createInstructions();
    QLabel *createSeparator();
    QPushButton *createButton(const QString &icon, const char *style, const QSize &size);
    QGridLayout *createGrid(const Catalogue &catalogue, const QSize &buttonSize);
    QHBoxLayout *createControls(const QSize &buttonSize);
    void watchReadings();

    void selectKey(int code);
    void askToClear();
    int answerTo(CustomMsgBox *question);
    void clearKeys();
    void showNotice(int level, const QString &text);

    QString readChange(const QString &path);
    bool takeReading(const QString &path, Reading *reading);
    void handleSample();
    void handleRelease();
    void rejectReading();
    void dropSamplesOfOtherKeys();
    void dropSamples(); // like initSampleKeys(), without the log line

    bool endOneWait(int code); // returns false if the key does not wait

    QMap<QPushButton *, int> mapButtonKeys;
    QPushButton *btnSave = nullptr;
    QPushButton *btnClear = nullptr;
    QFileSystemWatcher *fileWatcher = nullptr;
    QMap<int, QString> mapSwcKeys;
    QMap<int, QString> mapSampleKeys;
    QPushButton *curButton = nullptr;
    int validKey = 0;
    QString strSampleKey;
    int sampleKeyIdx = 0;
    QVector<int> clickAndValidKeys;
};
