#pragma once

#include "record.h"
#include "recordmodel.h"

#include <QList>
#include <QObject>
#include <QVector>

#include <memory>

/// What a model holds: rows of records. The list has one record a row.
using RecordRows = QList<QList<Record>>;

inline RecordRows recordrows(const RecordRows& grid) { return grid; }
RecordRows recordrows(const QList<Record>& list);

/// The records as text, for a message that shows where two models part.
QStringList asText(const RecordRows& rows);

/// One role of a model and the record key under which it keeps its value.
struct ContractRole
{
    enum Kind {
        Text,  ///< reads as what was stored
        Name,  ///< the same for texts that are not empty; the model has a rule of its own for empty ones
        Color, ///< stores any text and reads as the colour of that name
        Other  ///< follows rules that the model's own tests state
    };
    int role;
    QString key;
    Kind kind = Text;
};

/// What all models promise alike, as tests: how roles, indexes, rows and payloads are treated. The test class
/// of a model derives from `ModelContractOf` and gets these tests beside its own.
class ModelContract : public QObject
{
    Q_OBJECT

protected:
    /// A new model without rows, whose index function is open to tests.
    virtual std::unique_ptr<RecordModel> make(QObject* parent = nullptr) const = 0;
    /// An index of \a model at any row and column, also one that no view would ask for.
    virtual QModelIndex anywhere(const RecordModel& model, int row, int column) const = 0;
    virtual RecordRows records(const RecordModel& model) const = 0;
    virtual int columns() const = 0;
    /// All roles that the model stores. Beside them it reads the background and, maybe, a tool tip.
    virtual QVector<ContractRole> roles() const = 0;
    /// How many fields of a payload the model needs.
    virtual int payloadFields() const = 0;

    /// A model of \a rows rows that are told apart by the text of their first item, "0", "1" and so on.
    std::unique_ptr<RecordModel> numbered(int rows) const;
    /// The texts of the first items of all rows, with a blank between.
    static QString rowNames(const RecordModel& model);
    /// Puts a Live Button on the first item of \a row: every role holds "1".
    void occupy(RecordModel* model, int row) const;

private slots:
    void startsWithoutRows();
    void keepsEveryTextUnderItsRole_data();
    void keepsEveryTextUnderItsRole();
    void editsAndShowsTheNameByDefault();
    void showsColorsAsColors_data();
    void showsColorsAsColors();
    void showsAWhiteBackgroundWhateverIsSet();
    void refusesOtherRoles();
    void changesItemsSilently();
    void tellsOnceThatRecordsChanged();
    void readsAndTakesNothingOutside_data();
    void readsAndTakesNothingOutside();
    void readsAndTakesNothingOfOthers();
    void addsRowsOnTopWhateverTheRow_data();
    void addsRowsOnTopWhateverTheRow();
    void refusesToAddRowsWhereNoneCanBe_data();
    void refusesToAddRowsWhereNoneCanBe();
    void announcesTheRowsThatItRemoves_data();
    void announcesTheRowsThatItRemoves();
    void removesNothingWithoutRows_data();
    void removesNothingWithoutRows();
    void dragsBothFormatsAsCopies();
    void takesAWholePayloadWhateverRowAndColumn();
    void ignoresTheIgnoreAction();
    void refusesADamagedPayload_data();
    void refusesADamagedPayload();
    void refusesAPayloadWithoutBothFormats();
    void refusesADropWithoutATarget();
    void keepsTheRulesOfItemModels();
};

/// What the two grids of pads promise beside that.
class GridContract : public ModelContract
{
    Q_OBJECT

protected:
    /// A model that starts with a copy of \a grid.
    virtual std::unique_ptr<RecordModel> makefrom(const RecordRows& grid,
                                                  QObject* parent = nullptr) const = 0;

private slots:
    void startsWithACopyOfTheGrid();
    void readsAndTakesNothingThatAShortRowLacks();
    void refusesADropOnAPadThatAShortRowLacks();
    void refusesAPadFromNowhere_data();
    void refusesAPadFromNowhere();
    void keepsTheRulesOfItemModelsWithShortRows();
};

/// \a Contract, ModelContract or GridContract, for the model \a Model.
template<class Model, class Contract = ModelContract>
class ModelContractOf : public Contract
{
protected:
    /// The model with its index function in the open.
    class Open : public Model
    {
    public:
        using Model::createIndex;
        using Model::Model;
    };

    std::unique_ptr<RecordModel> make(QObject* parent = nullptr) const override
    {
        return std::make_unique<Open>(parent);
    }
    QModelIndex anywhere(const RecordModel& model, int row, int column) const override
    {
        return static_cast<const Open&>(model).createIndex(row, column);
    }
    RecordRows records(const RecordModel& model) const override
    {
        return recordrows(static_cast<const Model&>(model).getList());
    }
};

/// The same for a grid.
template<class Model>
class GridContractOf : public ModelContractOf<Model, GridContract>
{
protected:
    std::unique_ptr<RecordModel> makefrom(const RecordRows& grid, QObject* parent = nullptr) const override
    {
        return std::make_unique<typename ModelContractOf<Model, GridContract>::Open>(grid, parent);
    }
};
