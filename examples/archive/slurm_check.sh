#!/bin/sh
#SBATCH --job-name=igs-check
#SBATCH --ntasks=1
#SBATCH --requeue
#SBATCH --open-mode=append
# Checks an archive's files with Slurm, in the batches that `batches.py cut` made in RESULTS; runs where batches.py is:
#   sbatch --chdir=examples/archive --array=0-99 examples/archive/slurm_check.sh /archive/RESULTS [CHUNKS]
#   sbatch --chdir=examples/archive --dependency=afterany:JOB examples/archive/slurm_check.sh /archive/RESULTS
# As an array job it checks: the task of index I does the batches I, I + CHUNKS, I + 2 CHUNKS and so on, CHUNKS being one
# more than the last index when it is not given. A batch that is done is not done again. On its own it gathers.
# slurm_submit.py does both, for what is missing alone.
set -eu
results=$1
[ -n "${SLURM_ARRAY_TASK_ID:-}" ] || exec ./batches.py gather "$results"
chunks=${2:-$((SLURM_ARRAY_TASK_MAX + 1))}
set -- "$results"/batches/*.list
# shellcheck disable=SC2046 # one word a batch
exec ./batches.py run "$results" $(seq "$SLURM_ARRAY_TASK_ID" "$chunks" $(($# - 1)))
