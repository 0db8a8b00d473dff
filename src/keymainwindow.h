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

// The learning window. A tapped key waits as long as its code is in clickAndValidKeys. Readings go
// to the button that was tapped last.
class KeyMainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit KeyMainWindow(QWidget *parent);
    ~KeyMainWindow() override;

    // The flag for the driver. A missing file is not created.
    void writeLearnFlag(bool on);
    void writeClearFlag();

    // The samples of the key being learned, and the learned keys.
    void insertSampleKeys(int &index, QString &sample); // unless an equal one is stored
    bool isChuanKey(QString &sample); // true if it is too close to any learned key
    int insertSwcKeys(); // 0, or -1 if there are no samples
    bool isKeyLearned(int code);
    void initSampleKeys();
    void initSwcKeys();

    // The key configuration file and its backup. setDirectionRoad() adds the keys of one group.
    int loadSwcKeys(); // number of keys, or -1 if the file is missing
    void setDirectionRoad(QJsonObject configuration, QMap<int, QString> &learnedKeys,
                          QString group);
    QMap<int, int> insertSwcKey1Flag(); // channel and spacing of key line 2
    QMap<int, int> insertSwcKey2Flag(); // channel and spacing of key line 3
    void saveSwcKeys();
    void backupDirection(); // does nothing if a backup exists

    // Ends a selection that still waits.
    void recorrectBtnStatus(int code);

public slots:
    void onFileChange(QString path);

private slots:
    void onTouchKeysClicked();

    // A timer passes no argument to its slot, so each key has a time-out slot of its own.
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
    void dropSamples(); // without a log line

    bool removePending(int code);

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
