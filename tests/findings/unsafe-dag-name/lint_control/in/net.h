#define x_DAG_NAME "[2J"
