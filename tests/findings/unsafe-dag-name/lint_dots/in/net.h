#define x_DAG_NAME ".."
#define .._image_size 5
